// The whole window at work, at the built-in pedal's full speed: how late its thread answers, and what it
// costs. Prints a line for each run: NAME NUMBER...

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "loops/facts.h"
#include "running_application.h"
#include "ui/fonts.h"

namespace kzq::test {

namespace {

constexpr auto often = 1ms;

/// A thread of its own that asks the window's thread for an answer every millisecond, whether or not the last
/// one came.
class Questioner : Fixed {
  public:
    using Question = std::function<void()>;

    explicit Questioner(
        Executor& executor, Question question = [] {})
        : executor_(executor), question_(std::move(question)), thread_([this] { ask(); }) {}
    ~Questioner() { stop(); }

    /// How late the answers were, in milliseconds, sorted. All have come.
    std::vector<double> stop() {
        running_ = false;
        if (thread_.joinable()) {
            thread_.join();
            until([this] { return late_.size() == asked_; }, 20s);
            std::ranges::sort(late_);
        }
        return late_;
    }

  private:
    void ask() {
        for (auto due = Clock::now(); running_; due += often) {
            std::this_thread::sleep_until(due);
            ++asked_;
            executor_.main([this, asked = Clock::now()] {
                question_();
                late_.push_back(Milliseconds(Clock::now() - asked).count());
            });
        }
    }

    Executor& executor_;
    const Question question_;
    std::vector<double> late_;  ///< of the window's thread
    std::atomic<std::size_t> asked_ = 0;
    std::atomic<bool> running_ = true;
    std::thread thread_;
};

double shareOf(const std::vector<double>& sorted, double share) {
    const auto at = static_cast<std::size_t>(std::ceil(share * static_cast<double>(sorted.size())));
    return sorted.empty() ? 0 : sorted.at(std::max<std::size_t>(at, 1) - 1);
}

double ownSeconds() {
    timespec spent{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
    return static_cast<double>(spent.tv_sec) + static_cast<double>(spent.tv_nsec) / 1e9;
}

/// What the window's thread spends between the first frame in which the progress panel shows something new
/// and its closing: all that it does then is to show the progress, and to wait.
class PanelWatch : public QObject {
  public:
    explicit PanelWatch(QWidget& panel) { panel.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint && ++frames_ == 2) {
            begun_ = ownSeconds();
        } else if (event->type() == QEvent::Hide && frames_ > 1) {
            spent_ = ownSeconds() - begun_;
        }
        return false;
    }
    double spent() const { return spent_; }
    unsigned frames() const { return frames_; }

  private:
    unsigned frames_ = 0;
    double begun_ = 0;
    double spent_ = 0;
};

/// Returns its seconds.
double import(RunningApplication& application) {
    const auto start = Clock::now();
    application.startImport();
    const bool ended =
        until([&] { return application.busy(); }, 5s) && until([&] { return !application.busy(); }, 100s);
    if (!ended) {
        std::fprintf(stderr, "the import does not end\n");
        std::_Exit(EXIT_FAILURE);
    }
    return std::chrono::duration<double>(Clock::now() - start).count();
}

void answersDuringAnImport(RunningApplication& application) {
    Questioner questioner(application.executor);
    const auto seconds = import(application);
    const auto late = questioner.stop();
    std::printf("import %.3f %.3f %.3f\n", seconds, shareOf(late, 0.999), late.back());
}

/// Of all that the window does, with opening the progress and reading the table, and of the progress alone.
void costOfAnImport(RunningApplication& application) {
    const PanelWatch watch(application.delegate->progress()->window());
    const auto before = ownSeconds();
    const auto seconds = import(application);
    std::printf("cost %.3f %.4f %.4f %u\n", seconds, ownSeconds() - before, watch.spent(), watch.frames());
}

/// A pedal whose table changes a thousand times a second, in every row.
void changes(RunningApplication& application) {
    std::uint32_t samples = framesPerSecond;
    Questioner questioner(application.executor, [&] {
        Status status{.remaining = 0, .version = "1.05", .loops = {}};
        ++samples;
        for (const auto slot : allSlots()) {
            status.loops.put(
                slot, {.address = slot.address().wire(), .samples = samples, .tempo = 120, .channel = 1});
        }
        application.delegate->looperInternalStateChanged(status);
    });
    until([] { return false; }, 2s);
    const auto late = questioner.stop();
    std::printf("changes %zu %.3f %.3f\n", late.size(), shareOf(late, 0.999), late.back());
}

}  // namespace

}  // namespace kzq::test

int main(int argc, char** argv) {
    using namespace kzq::test;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const kzq::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    kzq::registerFonts();
    const auto seconds = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 1;
    const auto runs = argc > 2 ? std::strtoul(argv[2], nullptr, 10) : 1;
    const auto frames = std::min<std::size_t>(seconds * kzq::framesPerSecond, kzq::capacityFrames);
    kzq::simulator::PedalMemory memory;
    memory[0] = kzq::simulator::StoredLoop{kzq::Bytes(frames * kzq::frameBytes, 1)};
    auto& running = *new RunningApplication(std::move(memory));  // NOLINT(cppcoreguidelines-owning-memory)
    if (!running.ready()) {
        std::fprintf(stderr, "the window does not come\n");
        return EXIT_FAILURE;
    }
    for (unsigned long run = 0; run < runs; ++run) {
        answersDuringAnImport(running);
        costOfAnImport(running);
        std::filesystem::remove_all(running.base / std::to_string(running.imports));
        std::filesystem::remove_all(running.base / std::to_string(running.imports - 1));
    }
    for (unsigned long run = 0; run < runs; ++run) {
        changes(running);
    }
    std::filesystem::remove_all(running.base);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS);
}
