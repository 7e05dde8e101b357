// The whole application on the real clock: whether the window stays responsive while a full pedal is read.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <thread>

#include "app/app_delegate.h"
#include "app/application.h"
#include "app/main_window.h"
#include "device/kzq7306.h"
#include "device/simulator/simulated_pedal.h"
#include "device/simulator/simulated_port.h"
#include "loops/facts.h"
#include "platform/fixed.h"
#include "platform/qt_executor.h"
#include "test_folder.h"
#include "ui/fonts.h"
#include "ui/panels/progress.h"

namespace kzq::test {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto period = 50ms;
constexpr Milliseconds longestSlip = 50ms;
constexpr Milliseconds longestCancel = 500ms;
constexpr std::size_t parts = 8;  // of the pedal's memory: one long loop of four, and four loops
constexpr auto part = capacityFrames / parts * frameBytes;

/// Measures every 50 ms, on a thread that does nothing else, how late it wakes: the delay caused by the
/// computer itself, which may be busy.
class BareTimer : Fixed {
  public:
    BareTimer()
        : thread_([this] {
              for (auto due = Clock::now() + period; running_; due += period) {
                  std::this_thread::sleep_until(due);
                  latest_ = std::max<Milliseconds>(latest_, Clock::now() - due);
                  due = std::max(due, Clock::now() - period);
              }
          }) {}
    ~BareTimer() { stop(); }

    /// The longest delay.
    Milliseconds stop() {
        running_ = false;
        if (thread_.joinable()) {
            thread_.join();
        }
        return latest_;
    }

  private:
    std::atomic<bool> running_ = true;
    Milliseconds latest_{};
    std::thread thread_;
};

/// A timer of the window's thread.
class WindowTimer {
  public:
    WindowTimer() {
        timer_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { tick(); });
        timer_.start(period);
    }
    Milliseconds stop() {
        timer_.stop();
        tick();
        return latest_;
    }

  private:
    void tick() {
        const auto now = Clock::now();
        latest_ = std::max<Milliseconds>(latest_, now - last_ - period);
        last_ = now;
    }
    QTimer timer_;
    Clock::time_point last_ = Clock::now();
    Milliseconds latest_{};
};

bool until(const std::function<bool()>& condition, Clock::duration patience) {
    const auto end = Clock::now() + patience;
    QTimer wake;  // so that the end is noticed
    wake.start(1s);
    while (!condition() && Clock::now() < end) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

struct FolderChooser : Dialogs {
    int run(const Alert& alert) override {
        ADD_FAILURE() << alert.headline;
        return alertFirstButton;
    }
    int run(const Alert& alert, bool& /*ticked*/) override { return run(alert); }
    Chosen chooseFile(const FileTypes& /*allowed*/) override { return {}; }
    Chosen chooseNewFile(const std::string& /*name*/) override { return {}; }
    Chosen chooseFolder(const std::string& /*prompt*/) override { return {panelOk, folder}; }
    void openAddress(const std::string& /*url*/) override {}
    bool openApplication(const fs::path& /*bundle*/) override { return false; }
    fs::path folder;
};

struct NoWeb : HttpClient {
    HttpResult fetch(const HttpRequest& /*request*/) override { return {HttpFailure::network, "none", {}}; }
};

simulator::PedalMemory fullMemory() {
    simulator::PedalMemory memory;
    memory[0] = simulator::StoredLoop{Bytes(part * 4, 1)};
    for (const std::size_t address : {1U, 6U, 11U, 19U}) {
        memory.at(address) = simulator::StoredLoop{Bytes(part, 2)};
    }
    return memory;
}

/// Never destroyed, as in the program: jobs may be blocked in a transfer.
struct RunningApplication {
    RunningApplication() {
        KZQ7306::load({executor, port, [] { return 36U; }});
        static_cast<Application*>(qApp)->setDelegate(delegate.get());
        pedal.plugIn();
        delegate->applicationDidFinishLaunching();
    }

    AppEnvironment environment() {
        return {.executor = executor,
                .dialogs = dialogs,
                .http = web,
                .link = &KZQ7306::looper,
                .home = base,
                .product = {.version = "1", .website = "https://localhost"},
                .firmwareManifest = "https://localhost/_.json",
                .feedAddress = [](const auto& /*home*/) { return std::string("https://localhost/_.xml"); },
                .desktop = {},
                .build = {},
                .installation = {},
                .downloads = base,
                .convert = {},
                .diagnose = {},
                .modifiers = {},
                .quit = {}};
    }

    void startImport() {
        window.selectAllButton()->click();
        dialogs.folder = base / std::to_string(++imports);
        fs::create_directory(dialogs.folder);
        window.importButton()->click();
    }
    bool busy() const { return window.shield() != nullptr || delegate->progress()->isVisible(); }

    test::TestFolder base;
    int imports = 0;
    QtExecutor executor;
    simulator::SimulatedPedal pedal{executor, {.memory = fullMemory()}};
    simulator::SimulatedPort port{executor, pedal};
    FolderChooser dialogs;
    NoWeb web;
    MainWindow window;
    std::shared_ptr<AppDelegate> delegate = std::make_shared<AppDelegate>(environment(), window);
};

std::uint64_t bytesIn(const fs::path& folder) {
    std::uint64_t bytes = 0;
    for (const auto& file : fs::directory_iterator(folder)) {
        bytes += file.file_size();
    }
    return bytes;
}

void report(const char* what, Milliseconds time) {
    std::cout << what << ": " << time.count() << " ms" << std::endl;
}

TEST(Liveness, TheWindowStaysAliveWhile24MinutesAreImported) {
    auto& application = *new RunningApplication;  // NOLINT(cppcoreguidelines-owning-memory): see there
    ASSERT_TRUE(until(
        [&] { return application.window.isVisible() && application.window.selectAllButton()->isEnabled(); },
        20s));
    until([] { return false; }, 500ms);  // the window has been drawn
    Milliseconds machine;
    {
        BareTimer bare;
        WindowTimer timer;
        until([] { return false; }, 500ms);
        report("slip without an import", timer.stop());
        report("slip of a bare thread", machine = bare.stop());
    }
    {
        BareTimer bare;
        WindowTimer timer;
        const auto start = Clock::now();
        application.startImport();
        ASSERT_TRUE(until([&] { return application.busy(); }, 5s));
        ASSERT_TRUE(until([&] { return !application.busy(); }, 100s));
        const auto slip = timer.stop();
        const auto meanwhile = bare.stop();
        report("import of 24 minutes", Clock::now() - start);
        report("slip meanwhile", slip);
        report("slip of a bare thread meanwhile", meanwhile);
        EXPECT_LE(slip, longestSlip + std::max(machine, meanwhile));
        EXPECT_EQ(bytesIn(application.dialogs.folder), parts * part + 5 * waveHeaderSize);
    }
    application.startImport();
    const auto& progress = *application.delegate->progress();
    ASSERT_TRUE(until([&] { return progress.isVisible() && progress.percent() > 0.05; }, 20s));
    auto* const cancel = application.delegate->progress()->window().findChild<QAbstractButton*>();
    ASSERT_NE(cancel, nullptr);
    BareTimer bare;
    const auto start = Clock::now();
    cancel->click();
    ASSERT_TRUE(
        until([&] { return !application.busy() && KZQ7306::looper()->operation() == KZQ7306::idle; }, 20s));
    const Milliseconds took = Clock::now() - start;
    report("cancel", took);
    EXPECT_LE(took, longestCancel + bare.stop());
    EXPECT_LT(bytesIn(application.dialogs.folder), parts * part);
    fs::remove_all(application.base);
}

}  // namespace

}  // namespace kzq::test

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const kzq::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    kzq::registerFonts();
    std::_Exit(RUN_ALL_TESTS());
}
