#include "operations/backup.h"

#include <fstream>
#include <nlohmann/json.hpp>

#include "audio/wave.h"
#include "tool_fixture.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;
using testing::HasSubstr;
using testing::IsEmpty;
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
    const auto made = target / stamp;
    EXPECT_THAT(out.str(),
                HasSubstr("3 loops backed up in " + made.string() + "; 0 of them had been saved before.\n"));
    EXPECT_EQ(contents("new/" + stamp + "/Loop 20.wav"), wave(loopOf(1500, 30).audio, 2));
    std::ifstream file(made / "backup.json");
    const auto index = nlohmann::json::parse(file);
    EXPECT_EQ(index["format"], "kzq7306-backup");
    EXPECT_EQ(index["formatVersion"], 1);
    EXPECT_EQ(index["firmware"], "1.05");
    EXPECT_EQ(index["loops"].size(), 3U);
    EXPECT_EQ(index["loops"][1],
              nlohmann::json::parse(
                  R"({"slot": 5, "file": "Loop 5.wav", "samples": 1, "tempo": 100, "channel": 20,
                      "sha256": "aa17e4939cf96e0faaf5e13d829960a73f43b4e628b2f7419863e74dfe9e2e22"})"));
    EXPECT_FALSE(std::filesystem::exists(made / "backup.partial.json"));
    EXPECT_EQ(run({"backup", made}), ExitCode::usage) << "in the folder of one";
    EXPECT_THAT(pedal.violations(), IsEmpty());
}

TEST_F(BackupTest, GoesOnWhereTheCableWasPulled) {
    plan("unplug@in:9");  // loop 2 takes six reads, loop 5 one
    EXPECT_EQ(backup(), ExitCode::noPedal);
    EXPECT_EQ(err.str(), "kzq7306ctl: The pedal was unplugged.\n");
    EXPECT_THAT(out.str(), HasSubstr("2 of 3 loops saved in " + (folder / ("unfinished " + stamp)).string() +
                                     ". Run the same command again to continue.\n"));
    EXPECT_EQ(run({"backup", "--list", folder}), ExitCode::ok);
    EXPECT_EQ(out.str(), "unfinished " + stamp + ": 2 loops, 0:00.0.\n");
    plugInAgain();
    pedal.clearJournal();
    EXPECT_FALSE(wasEverBackedUp(folder.parent_path()));
    EXPECT_TRUE(wasEverBackedUp({})) << "nobody can say that none was";
    EXPECT_EQ(backup(), ExitCode::ok);
    EXPECT_TRUE(wasEverBackedUp(folder.parent_path()));
    EXPECT_THAT(out.str(), HasSubstr("Loop 2: already saved.\nLoop 5: already saved.\n3 loops backed up"));
    EXPECT_EQ(sent(0xE1), 3) << "what was saved already is compared";
    EXPECT_THAT(files(), UnorderedElementsAre(stamp));
}

TEST_F(BackupTest, GenerationsAreListedAndCompared) {
    EXPECT_EQ(run({"backup", "--list", folder}), ExitCode::fileError);
    EXPECT_EQ(backup(), ExitCode::ok);
    auto other = loopOf(1000, 10);
    other.audio.front() ^= 1U;  // of the same length
    pedal.setLoop(1, other);
    pedal.setLoop(19, std::nullopt);
    pedal.setLoop(7, loopOf(2, 2));
    auto faster = loopOf(1, 20);
    faster.tempo = 200;
    pedal.setLoop(4, faster);
    EXPECT_EQ(run({"diff", folder}), ExitCode::someFailed);
    EXPECT_EQ(out.str(), "Compared with the backup in " + (folder / stamp).string() +
                             ":\nLoop 2: changed (0:00.0 on the pedal, 0:00.0 in the backup).\n"
                             "Loop 5: the same; tempo or channel differs.\nLoop 8: new (0:00.0).\n"
                             "Loop 20: only in the backup (0:00.0).\n"
                             "1 changed, 1 new, 1 only in the backup, 1 the same.\n");
    EXPECT_EQ(run({"diff", folder, "--quick", "--json"}), ExitCode::someFailed);
    EXPECT_EQ(events()[1]["state"], "same-length");
    EXPECT_EQ(events().back()["done"], 2);

    EXPECT_EQ(backup(), ExitCode::ok);
    EXPECT_EQ(run({"diff", folder}), ExitCode::ok);
    EXPECT_EQ(run({"diff", folder, "--snapshot", stamp}), ExitCode::someFailed);
    EXPECT_EQ(run({"diff", folder, "--snapshot", "other"}), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("There is no backup \"other\" in"));

    write(stamp + "/backup.json", {'{'});
    EXPECT_EQ(run({"backup", "--list", folder}), ExitCode::fileError);
    EXPECT_THAT(out.str(), testing::AllOf(HasSubstr(stamp + ": cannot be used.\n"),
                                          HasSubstr(stamp + "-02: 3 loops, 0:00.0.\n")));
    EXPECT_THAT(err.str(),
                HasSubstr("backup.json\" is not a backup index. Nothing was changed. Choose another"));
}

}  // namespace
}  // namespace kzq::test
