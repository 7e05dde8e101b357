// The whole application with a real sound server, which has no device but one that takes what comes: how soon
// a press is heard, whether a loop goes round without a gap, and whether the window goes on meanwhile.

#include "app/listening.h"

#include <cstdio>
#include <cstdlib>
#include <mutex>

#include "fake_output.h"
#include "listening/sound/qt_audio_output.h"
#include "loops/facts.h"
#include "running_application.h"
#include "ui/fonts.h"

namespace kzq::test {

namespace {

constexpr std::size_t shortLoop = 20'001;
constexpr std::size_t mostMissed = 441;  // 10 ms
constexpr std::size_t longLoop = 10UL * 60 * framesPerSecond;
constexpr Milliseconds soonest = 100ms;
constexpr Milliseconds longestStall = 16ms;

simulator::StoredLoop noiseOf(std::size_t frames) {
    simulator::StoredLoop loop{Bytes(frames * frameBytes)};
    std::uint32_t seed = 7306;
    for (auto& byte : loop.audio) {
        seed = seed * 1664525U + 1013904223U;
        byte = static_cast<std::uint8_t>(seed >> 24U | 1U);  // never silent
    }
    return loop;
}

/// What the device takes, and when the first of it that is not silence came here.
class Ear : Fixed {
  public:
    Ear()
        : pipe_(popen("parec --device=null.monitor --format=s32le --rate=44100 --channels=2 --latency-msec=5",
                      "r")),
          thread_([this] { listen(); }) {}
    ~Ear() {
        over_ = true;
        thread_.join();
        pclose(pipe_);
    }

    void forget() {
        const std::lock_guard guard(mutex_);
        heard_.clear();
    }
    /// From the first sound on.
    std::vector<std::int32_t> heard() const {
        const std::lock_guard guard(mutex_);
        return heard_;
    }
    Clock::time_point since() const {
        const std::lock_guard guard(mutex_);
        return since_;
    }
    bool listens() const { return listens_; }

  private:
    void listen() {
        std::array<std::int32_t, 128> piece{};
        while (!over_ && std::fread(piece.data(), sizeof piece, 1, pipe_) == 1) {
            listens_ = true;
            const std::lock_guard guard(mutex_);
            auto* first = piece.begin();
            if (heard_.empty()) {
                first = std::ranges::find_if(piece, [](auto sample) { return sample != 0; });
                since_ = Clock::now();
            }
            heard_.insert(heard_.end(), first, piece.end());
        }
    }

    std::FILE* pipe_;
    std::atomic<bool> over_ = false;
    std::atomic<bool> listens_ = false;
    mutable std::mutex mutex_;
    std::vector<std::int32_t> heard_;
    Clock::time_point since_;
    std::thread thread_;
};

TEST(ListeningWithSound, APressIsHeardSoonAndALoopGoesRoundWithoutAGap) {
    simulator::PedalMemory memory;
    memory[0] = noiseOf(shortLoop);
    memory[4] = noiseOf(longLoop);
    auto& application = *new RunningApplication(std::move(memory), new QtAudioOutput);  // NOLINT: see there
    ASSERT_TRUE(application.ready());
    Ear ear;
    auto& listening = application.delegate->parts().listening;
    const auto press = [&](unsigned slot) {
        listening.stop();
        until([] { return false; }, 300ms);
        ear.forget();
        const auto start = Clock::now();
        application.delegate->playClickedForSlot(*application.delegate->importSlots().at(slot - 1));
        EXPECT_TRUE(until([&] { return !ear.heard().empty(); }, 10s));
        return Milliseconds(ear.since() - start);
    };
    ASSERT_TRUE(until([&] { return ear.listens(); }, 10s));
    report("from a press to the sound, the first of all", press(1));
    Milliseconds latest{};
    for (int i = 0; i < 5; ++i) {
        latest = std::max(latest, press(1));
    }
    report("from a press to the sound, loop already read, the longest of 5", latest);
    EXPECT_LE(latest, soonest);

    constexpr std::size_t rounds = 4;
    ASSERT_TRUE(until([&] { return ear.heard().size() > rounds * shortLoop * 2; }, 20s));
    auto heard = ear.heard();
    heard.resize(rounds * shortLoop * 2);
    // A monitor that wakes up with the sound may miss its first moment.
    const auto audio = noiseOf(shortLoop).audio;
    std::size_t missed = 0;
    auto wanted = asHeard(audio, 0, rounds * shortLoop);
    while (missed < mostMissed && !std::equal(heard.begin(), heard.begin() + 8, wanted.begin())) {
        wanted = asHeard(audio, ++missed, rounds * shortLoop);
    }
    const auto odd = std::ranges::mismatch(heard, wanted).in1 - heard.begin();
    std::cout << "gap between rounds: " << (heard == wanted ? 0 : -1) << " frames (" << rounds
              << " rounds of " << shortLoop << " frames; the first that differs: " << odd / 2
              << "; missed before: " << missed << ")" << std::endl;
    EXPECT_EQ(heard, wanted);

    application.port.pace = 1ms;
    report("from a press to the sound, loop not read, at 1 KiB a millisecond", press(5));
    application.port.pace = 0ms;
    BareTimer bare(5ms);
    WindowTimer timer(5ms);
    ASSERT_TRUE(until([&] { return listening.copyOf(*SlotNumber::of(5)).has_value(); }, 60s));
    const auto stall = timer.stop();
    const auto machine = bare.stop();
    report("longest stall of the window while 10 minutes are read and heard", stall);
    report("of a bare thread meanwhile", machine);
    EXPECT_LE(stall, longestStall + machine);
    std::filesystem::remove_all(application.base);
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
