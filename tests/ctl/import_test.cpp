#include <nlohmann/json.hpp>

#include "audio/wave.h"
#include "tool_fixture.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

TEST_F(ToolTest, ImportWritesEveryLoopAndNeverReplacesAFile) {
    pedal.plugIn();
    EXPECT_EQ(import({"--all"}), ExitCode::ok);
    EXPECT_EQ(contents("Loop 5.wav"), wave(loopOf(1, 20).audio, 2));
    EXPECT_EQ(contents("Loop 20.wav"), wave(loopOf(1500, 30).audio, 2));
    const std::string at = folder.string();
    EXPECT_EQ(out.str(), "Loop 2: saved as " + at + "/Loop 2.wav (6.0 kB).\nLoop 5: saved as " + at +
                             "/Loop 5.wav (50 B).\nLoop 20: saved as " + at +
                             "/Loop 20.wav (9.0 kB).\n3 loops saved.\n");
    EXPECT_THAT(err.str(), IsEmpty());

    EXPECT_EQ(import({"20", "1-5"}), ExitCode::someFailed);
    EXPECT_THAT(files(), UnorderedElementsAre("Loop 2.wav", "Loop 5.wav", "Loop 20.wav", "Loop 2-2.wav",
                                              "Loop 5-2.wav", "Loop 20-2.wav"));
    EXPECT_THAT(err.str(), HasSubstr("kzq7306ctl: Loop 4 was not saved: the slot is empty.\n"));
    EXPECT_THAT(out.str(), HasSubstr("3 of 6 loops saved.\n"));
    EXPECT_THAT(pedal.violations(), IsEmpty());

    EXPECT_EQ(import({"3"}), ExitCode::pedalRefused);
}

TEST_F(ToolTest, OneLoopFailsTheOthersAreSaved) {
    pedal.plugIn();
    plan("refuse@E1");
    EXPECT_EQ(import({"--all"}), ExitCode::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("Loop 2 was not saved: the pedal refused to send it."));
    EXPECT_THAT(files(), UnorderedElementsAre("Loop 5.wav", "Loop 20.wav"));

    plan("stall@in:7");
    EXPECT_EQ(import({"5", "20"}), ExitCode::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("Loop 20 was not saved: the pedal stopped partway through."));
    port.tamper = [this](std::uint8_t request, std::span<std::uint8_t>) {
        if (request == 0xE1) {
            pedal.setLoop(19, loopOf(1499, 30));
        }
    };
    EXPECT_EQ(import({"2", "20"}), ExitCode::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("Loop 20 was not saved: it changed while it was being read."));
}

TEST_F(ToolTest, ATerminalSeesSpeedAndTimeLeftAndAProgramBytes) {
    pedal.plugIn();
    port.pace = 500ms;
    terminal = true;
    EXPECT_EQ(import({"20"}), ExitCode::ok);
    EXPECT_THAT(out.str(), HasSubstr("\r\x1B[KLoop 20 (1 of 1): 45 %, 2.0 kB/s, 0:03 left\r"));
    EXPECT_THAT(out.str(), testing::EndsWith("Loop 20: saved as " + folder.string() +
                                             "/Loop 20.wav (9.0 kB).\n1 loop saved.\n"));
    terminal = false;
    EXPECT_EQ(import({"20", "--json"}), ExitCode::ok);
    std::uint64_t moved = 0;
    for (const auto& event : events()) {
        if (event["event"] == "progress") {
            EXPECT_EQ(event["slot"], 20);
            EXPECT_EQ(event["totalBytes"], 9024);
            EXPECT_GT(event["transferredBytes"], moved);
            moved = event["transferredBytes"];
        }
    }
    EXPECT_EQ(moved, 9024U) << "with the padding";
}

TEST_F(ToolTest, FolderIsCheckedBeforeThePedalIsTouchedAndMadeWhenThereIsALoopForIt) {
    pedal.plugIn();
    EXPECT_EQ(run({"import", "--all", "--to", folder / "missing" / "too"}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("does not exist"));
    EXPECT_FALSE(std::filesystem::exists(folder / "missing"));
    EXPECT_EQ(run({"import", "--all", "--to", "/proc"}), ExitCode::fileError);
    EXPECT_THAT(sent(0xE9), 0);

    EXPECT_EQ(run({"import", "7", "--to", folder / "new/"}), ExitCode::pedalRefused);
    EXPECT_THAT(files(), IsEmpty());
    EXPECT_EQ(run({"import", "2", "--to", folder / "new/"}), ExitCode::ok);
    EXPECT_TRUE(std::filesystem::exists(folder / "new" / "Loop 2.wav"));
}

TEST_F(ToolTest, TooLittleSpaceIsSaidBeforeAnythingMoves) {
    pedal.plugIn();
    freeBytes = 5'000;
    const std::string at = folder / "new";
    EXPECT_EQ(run({"import", "2", "5", "9", "--to", at}), ExitCode::fileError);
    EXPECT_EQ(err.str(), "kzq7306ctl: There is too little space in \"" + at +
                             "\": 6.0 kB are needed and 5.0 kB are free. Make room or choose another "
                             "folder.\n");
    EXPECT_EQ(run({"backup", at}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("15.1 kB are needed and 5.0 kB are free."));
    EXPECT_EQ(sent(0xE1), 0);
    EXPECT_THAT(files(), IsEmpty());
    freeBytes = 44 + 6000 + 44 + 6;
    EXPECT_EQ(import({"2", "5"}), ExitCode::ok);

    freeBytes.reset();
    plan("unplug@in:8");  // in loop 20, the others are saved: only that one is still to be written
    EXPECT_EQ(run({"backup", at}), ExitCode::noPedal);
    plugInAgain();
    freeBytes = 44 + 9000;
    EXPECT_EQ(run({"backup", at}), ExitCode::ok);
}

}  // namespace
}  // namespace kzq::test
