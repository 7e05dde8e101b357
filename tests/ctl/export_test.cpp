#include <fstream>
#include <nlohmann/json.hpp>

#include "audio/wave.h"
#include "tool_fixture.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;
using ctl::Answer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* overwriteQuestion =
    "Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. Would you like to "
    "continue?";

class ExportTest : public ToolTest {
  protected:
    ExportTest() {
        pedal.plugIn();
        a = writeWave("a.wav", loopOf(700, 40));
        b = writeWave("b.wav", loopOf(3, 50));
    }
    ~ExportTest() override { EXPECT_EQ(workingCopies(), 0); }

    Bytes onPedal(unsigned slot) const {
        const auto loop = pedal.memory().at(slot - 1);
        return loop ? loop->audio : Bytes();
    }

    std::string a;
    std::string b;
};

TEST_F(ExportTest, FilesGoToTheFirstFreeSlotsInTheirOrder) {
    int begun = 0;
    convert = [&, copy = convert](const ctl::ConversionOrder& order) {
        for (++begun; order.source == b && begun < 2;) {
            executor.sleep(1s);  // until the other one is converted at the same time
        }
        return copy(order);
    };
    EXPECT_EQ(run({"export", b, a, "--verify"}), ExitCode::ok);
    EXPECT_EQ(onPedal(1), loopOf(3, 50).audio);
    EXPECT_EQ(onPedal(3), loopOf(700, 40).audio);
    EXPECT_EQ(out.str(), "Loop 1: " + b + ", 0:00.0, whole.\nLoop 3: " + a +
                             ", 0:00.0, whole.\nSpace remaining: 23 min, 59 sec\n"
                             "Loop 1: written and compared, sample for sample.\n"
                             "Loop 3: written and compared, sample for sample.\n"
                             "2 loops written and compared.\n");
    EXPECT_THAT(questions, IsEmpty());
    EXPECT_THAT(pedal.violations(), IsEmpty());
    EXPECT_EQ(files().size(), 2U) << "the user's own files stay";
}

TEST_F(ExportTest, OverwritingNeedsAYes) {
    EXPECT_EQ(run({"export", a, b, "--slot", "4"}), ExitCode::usage);
    EXPECT_THAT(err.str(), HasSubstr("use --yes"));
    answer = [] { return Answer::no; };
    EXPECT_EQ(run({"export", a, b, "--slot", "4"}), ExitCode::cancelled);
    EXPECT_THAT(questions, ElementsAre(overwriteQuestion, overwriteQuestion));
    EXPECT_EQ(sent(0xE2), 0);
    EXPECT_EQ(onPedal(5), loopOf(1, 20).audio);

    answer = [] { return Answer::yes; };
    EXPECT_EQ(run({"export", a, b, "--slot", "4"}), ExitCode::ok);
    EXPECT_EQ(onPedal(4), loopOf(700, 40).audio);
    EXPECT_EQ(onPedal(5), loopOf(3, 50).audio);
    EXPECT_EQ(run({"export", b, "--slot", "20", "--yes"}), ExitCode::ok);
    EXPECT_EQ(onPedal(20), loopOf(3, 50).audio);
    EXPECT_EQ(questions.size(), 3U);
    EXPECT_THAT(pedal.violations(), IsEmpty());
}

TEST_F(ExportTest, OnlyWhatTheUserWasAskedAboutIsOverwritten) {
    const std::vector<std::string> both = {"export", a, b, "--slot", "4"};  // loop 5 is overwritten
    answer = [this] {
        pedal.setLoop(4, loopOf(2, 1));
        return Answer::yes;
    };
    EXPECT_EQ(run(both), ExitCode::pedalRefused);
    EXPECT_THAT(
        err.str(),
        HasSubstr("Loop 5 was changed on the pedal in the meantime, so nothing was written or erased."));
    answer = [this] {
        plan("shorten@EB+");
        return Answer::yes;
    };
    EXPECT_EQ(run(both), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("did not report its loops"));
    EXPECT_THAT(err.str(), HasSubstr(" Nothing was changed.\n"));
    EXPECT_EQ(sent(0xE2), 0);
    pedal.clearFaults();
    pedal.setMemoryListener([this](std::uint8_t address, const simulator::StoredLoop*) {
        if (address == 0) {
            pedal.setLoop(2, loopOf(9, 1));
        }
    });
    EXPECT_EQ(run({"export", a, b, "--verify"}), ExitCode::pedalRefused);
    EXPECT_EQ(err.str(),
              "kzq7306ctl: Loop 3 was recorded on the pedal in the meantime, so nothing more was written or "
              "erased. Run the command again.\n");
    EXPECT_THAT(out.str(), HasSubstr("1 of 2 loops written and compared.\n"));
    EXPECT_EQ(onPedal(3), loopOf(9, 1).audio);
    pedal.setMemoryListener({});
    EXPECT_THAT(pedal.violations(), IsEmpty());
}

/// The pedal is exactly full when one frame more is refused; the working copies are holes in the disk.
TEST_F(ExportTest, CapacityIsAStrictLimit) {
    std::uint64_t frames = 0;
    convert = [&frames](const ctl::ConversionOrder& order) -> Result<ctl::ConvertedFile> {
        const auto path = order.output / "long.wav";
        std::ofstream(path).close();
        std::filesystem::resize_file(path, waveHeaderSize + frames * 6);
        return ctl::ConvertedFile{path, frames};
    };
    answer = [] { return Answer::no; };
    const std::uint64_t others = 1 + 1500;  // slot 2 is overwritten
    frames = 63'503'999 - others;
    EXPECT_EQ(run({"export", a, "--slot", "2"}), ExitCode::cancelled);
    EXPECT_THAT(out.str(), HasSubstr("Space remaining: 0 min, 0 sec\n"));
    EXPECT_EQ(questions.size(), 1U);
    ++frames;
    EXPECT_EQ(run({"export", a, "--slot", "2", "--yes"}), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("This file is too large for the available space on your 7306.\n"));
    frames = 40'000'000;  // each for itself would fit
    EXPECT_EQ(run({"export", a, b, "--yes"}), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr(b + "\": This file is too large"));
    EXPECT_EQ(sent(0xE2), 0);
}

TEST_F(ExportTest, NothingIsSentUnlessEverythingCanBe) {
    const auto text = write("text.wav", {'t', 'e', 'x', 't'});
    EXPECT_EQ(run({"export", a, text}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr(text + "\" is in a format that is not supported."));
    EXPECT_EQ(run({"export", write("empty.wav", wave({}, 2).value())}), ExitCode::fileError);

    for (std::uint8_t address = 0; address < 19; ++address) {
        pedal.setLoop(address, loopOf(1, 1));
    }
    pedal.setLoop(19, std::nullopt);
    EXPECT_EQ(run({"export", a, b}), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("The pedal has only 1 free slot for 2 files."));
    EXPECT_EQ(sent(0xE2), 0);
}

TEST_F(ExportTest, ALoopThatFailsIsNoSilentSuccess) {
    plan("refuse@E2");
    EXPECT_EQ(run({"export", a, b, "--json"}), ExitCode::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("Loop 1 was not written: the pedal refused it."));
    EXPECT_EQ(onPedal(3), loopOf(3, 50).audio);
    std::vector<std::string> told;
    for (const auto& event : events()) {
        told.push_back(event["event"]);
    }
    EXPECT_THAT(told, ElementsAre("staged", "staged", "space", "failed", "written", "finished"));
    plan("stall@out:3");
    EXPECT_EQ(run({"export", a}), ExitCode::pedalRefused);
}

TEST_F(ExportTest, CancelDuringAConversion) {
    convert = [&, copy = convert](const ctl::ConversionOrder& order) {
        while (order.source == a && !*order.cancelled) {
            executor.sleep(1s);
        }
        return copy(order);
    };
    EXPECT_EQ(run({"export", write("text.wav", {}), a}), ExitCode::fileError) << "which ends the other";
    EXPECT_EQ(workingCopies(), 0);
    start({"export", a, b});
    executor.advance(100s);  // longer than the patience with the pedal
    EXPECT_FALSE(code);
    tool->interrupt();
    EXPECT_EQ(finish(), ExitCode::cancelled);

    EXPECT_EQ(sent(0xE2), 0);
}

}  // namespace
}  // namespace kzq::test
