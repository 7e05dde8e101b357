#include <filesystem>
#include <fstream>
#include <map>

#include "audio/wave.h"
#include "device/recorder/recording_port.h"
#include "device/recorder/replay_port.h"
#include "device/simulator/simulated_port.h"
#include "device_fixture.h"
#include "test_folder.h"

namespace kzq::test {
namespace {

using recorder::readRecording;
using recorder::RecordingFile;
using recorder::RecordingPort;
using recorder::ReplayPort;
using recorder::SessionRecorder;
using simulator::PedalMemory;
using simulator::SimulatedPedal;
using simulator::SimulatedPort;
using simulator::StoredLoop;
using Strings = std::vector<std::string>;

/// The loop of the committed recordings.
Bytes ramp(std::size_t frames) {
    Bytes audio(frames * 6);
    for (std::size_t i = 0; i < audio.size(); ++i) {
        audio[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
    }
    return audio;
}

/// The result of a session with the pedal, through any port.
struct Session {
    Strings events;
    Loops loops;
    std::map<int, std::optional<std::vector<std::uint8_t>>> files;
    int imported = -1;

    bool operator==(const Session&) const = default;
};

class RecorderTest : public testing::Test {
  public:
  protected:
    RecorderTest() {
        setLogSink([](LogCategory, std::string_view) {});
    }
    ~RecorderTest() override { setLogSink({}); }

    std::filesystem::path path() const { return folder_ / "session"; }

    /// Lists the loops and imports `slots`; a hanging transfer is ended after a minute.
    static Session session(VirtualExecutor& executor, UsbPort& port, const std::vector<std::uint8_t>& slots) {
        Session result;
        const auto delegate = std::make_shared<RecordingDelegate>(executor);
        KZQ7306::load({executor, port, [] { return std::uint64_t{36}; }});
        KZQ7306::initialize(delegate);
        executor.settle();
        const auto link = KZQ7306::looper();
        bool listed = false;
        link->loops([&](const auto& loops) {
            result.loops = loops.value_or(Loops());
            listed = true;
        });
        EXPECT_TRUE(executor.advanceUntil([&] { return listed; }));
        bool over = !link->importLoops(
            slots, [](auto, auto) {}, [&](const auto& file, auto slot) { result.files[slot] = file; },
            [&](auto count) {
                result.imported = count;
                over = true;
            });
        executor.mainAfter(1min, [link, &over] {
            if (!over) {
                link->interrupt();
            }
        });
        EXPECT_TRUE(executor.advanceUntil([&] { return over; }));
        executor.advance(10s);
        result.events = delegate->events;
        executor.endJobs();
        KZQ7306::unload();
        return result;
    }

    Session record(const PedalMemory& memory, const std::vector<std::uint8_t>& slots, const Strings& faults) {
        VirtualExecutor executor;
        SimulatedPedal pedal(executor, {.memory = memory});
        for (const auto& fault : faults) {
            pedal.plan(simulator::faultFromText(fault).value());
        }
        SimulatedPort real(executor, pedal);
        const auto file = RecordingFile::create(path(), {});
        EXPECT_TRUE(file);
        RecordingPort port(real, std::make_shared<SessionRecorder>(executor, file.value()));
        pedal.plugIn();
        return session(executor, port, slots);
    }

    Session replay(const std::filesystem::path& recording, const std::vector<std::uint8_t>& slots) {
        std::ifstream file(recording);
        auto read = readRecording(file);
        EXPECT_TRUE(read);
        VirtualExecutor executor;
        ReplayPort port(executor, read.value_or(recorder::Recording()),
                        [this](const std::string& difference) { differences.push_back(difference); });
        auto result = session(executor, port, slots);
        left = port.left();
        return result;
    }

    PedalMemory twoLoops{StoredLoop{ramp(200), 90, 1}, StoredLoop{ramp(1), 1, 2}};
    Strings differences;
    std::size_t left = 0;  ///< events that were not replayed

  private:
    TestFolder folder_;
};

TEST_F(RecorderTest, AReplayIsLikeTheSession) {
    for (const Strings& faults : std::vector<Strings>{{}, {"silence@in:2"}, {"unplug@in:2"}, {"stall@E1"}}) {
        SCOPED_TRACE(testing::PrintToString(faults));
        const Session recorded = record(twoLoops, {1, 2}, faults);
        EXPECT_THAT(recorded.events, Contains("connected p@0"));
        EXPECT_EQ(recorded.files.at(1).has_value(), faults.empty());
        EXPECT_EQ(replay(path(), {1, 2}), recorded);
        EXPECT_THAT(differences, IsEmpty());
        EXPECT_EQ(left, 0);
        std::filesystem::remove(path());
    }
}

/// Recordings of the first version stay readable.
TEST_F(RecorderTest, AKeptRecordingGivesWhatItGave) {
    const Session kept = replay(std::filesystem::path(KZQ_RECORDINGS) / "import.txt", {4});
    EXPECT_THAT(differences, IsEmpty());
    EXPECT_EQ(kept.imported, 1);
    ASSERT_EQ(kept.loops.size(), 1);
    EXPECT_EQ(kept.loops.find(4_slot)->samples, 100);
    EXPECT_EQ(kept.loops.find(4_slot)->channel, 255);
    EXPECT_EQ(kept.files.at(4), wave(ramp(100), 2));
}

/// Even where the events come on the thread that registered for them.
TEST_F(RecorderTest, APedalThatComesLaterIsNoneThatWasThere) {
    VirtualExecutor executor;
    SimulatedPedal pedal(executor, {});
    SimulatedPort real(executor, pedal);
    auto file = RecordingFile::create(path(), {});
    ASSERT_TRUE(file);
    RecordingPort port(real, std::make_shared<SessionRecorder>(executor, file.value()));
    port.registerHotplug(HotplugEvent::arrived, {pedalVendor, pedalProduct},
                         [](const auto&, auto) { return 0; });
    pedal.plugIn();
    port.handleEvents();
    std::ifstream recording(path());
    const std::string text(std::istreambuf_iterator<char>(recording), {});
    EXPECT_THAT(text, testing::AllOf(testing::HasSubstr(" arrived 1"), Not(testing::HasSubstr("there"))));
}

}  // namespace
}  // namespace kzq::test
