#include <fstream>
#include <nlohmann/json.hpp>

#include "audio/wave.h"
#include "tool_fixture.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

class BackupTest : public ToolTest {
  protected:
    BackupTest() { pedal.plugIn(); }

    ExitCode backup() { return run({"backup", folder}); }
};

TEST_F(BackupTest, EveryLoopAndAnIndex) {
    const auto target = folder / "new";
    EXPECT_EQ(run({"backup", folder / "missing" / "new"}), ExitCode::fileError);
    EXPECT_EQ(run({"backup", target}), ExitCode::ok);
    EXPECT_THAT(out.str(), HasSubstr("3 loops backed up in " + target.string() + ".\n"));
    EXPECT_EQ(contents("new/Loop 20.wav"), wave(loopOf(1500, 30).audio, 2));
    std::ifstream file(target / "backup.json");
    const auto index = nlohmann::json::parse(file);
    EXPECT_EQ(index["format"], "kzq7306-backup");
    EXPECT_EQ(index["formatVersion"], 1);
    EXPECT_EQ(index["firmware"], "1.05");
    EXPECT_EQ(index["loops"].size(), 3U);
    EXPECT_EQ(index["loops"][1],
              nlohmann::json::parse(
                  R"({"slot": 5, "file": "Loop 5.wav", "samples": 1, "tempo": 100, "channel": 20,
                      "sha256": "aa17e4939cf96e0faaf5e13d829960a73f43b4e628b2f7419863e74dfe9e2e22"})"));
    EXPECT_FALSE(std::filesystem::exists(target / "backup.partial.json"));
    EXPECT_THAT(pedal.violations(), IsEmpty());
}

TEST_F(BackupTest, GoesOnWhereTheCableWasPulled) {
    plan("unplug@in:9");  // loop 2 takes six reads, loop 5 one
    EXPECT_EQ(backup(), ExitCode::noPedal);
    EXPECT_EQ(err.str(), "kzq7306ctl: The pedal was unplugged.\n");
    EXPECT_THAT(out.str(), HasSubstr("2 of 3 loops saved. Run the same command again to continue.\n"));
    EXPECT_THAT(files(), UnorderedElementsAre("Loop 2.wav", "Loop 5.wav", "backup.partial.json"));
    plugInAgain();
    pedal.clearJournal();
    EXPECT_EQ(backup(), ExitCode::ok);
    EXPECT_THAT(out.str(), HasSubstr("Loop 2: already saved.\nLoop 5: already saved.\n3 loops backed up"));
    EXPECT_EQ(sent(0xE1), 3) << "what was saved already is compared";
    EXPECT_THAT(files(), UnorderedElementsAre("Loop 2.wav", "Loop 5.wav", "Loop 20.wav", "backup.json"));
}

TEST_F(BackupTest, AFinishedBackupIsComparedAndNeverTouched) {
    EXPECT_EQ(backup(), ExitCode::ok);
    const auto before = files();
    EXPECT_EQ(backup(), ExitCode::ok);
    EXPECT_THAT(out.str(), HasSubstr("Loop 20: unchanged.\n3 of 3 loops compared: same as in the backup.\n"));

    auto other = loopOf(1000, 10);
    other.audio.front() ^= 1U;  // of the same length
    pedal.setLoop(1, other);
    pedal.setLoop(19, std::nullopt);
    pedal.setLoop(7, loopOf(2, 2));
    auto faster = loopOf(1, 20);
    faster.tempo = 200;
    pedal.setLoop(4, faster);
    EXPECT_EQ(backup(), ExitCode::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("Loop 2 has changed since the backup.\n"));
    EXPECT_THAT(err.str(), HasSubstr("Loop 8 is not in the backup.\n"));
    EXPECT_THAT(err.str(), HasSubstr("Loop 20 is no longer on the pedal.\n"));
    EXPECT_THAT(out.str(), HasSubstr("Loop 5: the audio is unchanged; tempo or channel differs.\n"));
    EXPECT_EQ(files(), before);

    auto damaged = contents("Loop 5.wav");
    damaged.back() ^= 1U;
    write("Loop 5.wav", damaged);
    EXPECT_EQ(backup(), ExitCode::someFailed);
    EXPECT_THAT(err.str(), HasSubstr("Loop 5 is damaged in the backup"));
    EXPECT_EQ(files(), before);
}

TEST_F(BackupTest, LoopsOfTwoMomentsAreNoBackup) {
    port.pace = 10ms;
    start({"backup", folder});
    executor.advance(75ms);  // loops 2 and 5 are saved
    pedal.setLoop(1, loopOf(10, 1));
    EXPECT_EQ(finish(), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("changed during the backup"));
}

}  // namespace
}  // namespace kzq::test
