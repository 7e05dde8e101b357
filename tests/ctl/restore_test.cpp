#include "tool_fixture.h"

namespace kzq::test {
namespace {

using ctl::Answer;
using testing::HasSubstr;
using testing::IsEmpty;

class RestoreTest : public ToolTest {
  protected:
    RestoreTest() { pedal.plugIn(); }

    ExitCode backup() { return run({"backup", folder}); }
    ExitCode restore() { return run({"restore", folder, "--yes"}); }

    /// By address; empty slots give no bytes.
    std::vector<Bytes> audio() const {
        std::vector<Bytes> all;
        for (const auto& loop : pedal.memory()) {
            all.push_back(loop ? loop->audio : Bytes());
        }
        return all;
    }
};

TEST_F(RestoreTest, OnlyWhatDiffersIsChangedAfterAQuestion) {
    const auto before = audio();
    EXPECT_EQ(backup(), ExitCode::ok);
    pedal.setLoop(2, loopOf(44'100, 1));  // the slot is empty in the backup
    auto other = loopOf(1000, 10);
    other.audio.back() ^= 1U;
    pedal.setLoop(1, other);
    pedal.setLoop(4, std::nullopt);
    const auto changed = audio();
    EXPECT_EQ(run({"restore", folder}), ExitCode::usage);
    answer = [] { return Answer::no; };
    EXPECT_EQ(run({"restore", folder}), ExitCode::cancelled);
    EXPECT_EQ(out.str(), "From the backup in " + (folder / stamp).string() +
                             ":\n"
                             "Loop 2: will be overwritten (0:00.0 instead of 0:00.0).\n"
                             "Loop 3: will be erased (0:01.0); the slot is empty in the backup.\n"
                             "Loop 5: will be written (0:00.0).\nLoop 20: already the same.\n");
    EXPECT_EQ(
        questions.back(),
        "The current audio of loops 2 and 3 on the 7306 will be erased. Erased audio cannot be restored. "
        "Would you like to continue?");
    EXPECT_EQ(audio(), changed);

    answer = [] { return Answer::yes; };
    EXPECT_EQ(run({"restore", folder}), ExitCode::ok);
    EXPECT_EQ(audio(), before);
    EXPECT_THAT(out.str(), HasSubstr("2 loops written, 1 erased, 1 unchanged.\n"));
    EXPECT_EQ(sent(0xE2), 2);
    EXPECT_EQ(run({"restore", folder}), ExitCode::ok);
    EXPECT_EQ(questions.size(), 3U) << "no question where nothing changes";
}

TEST_F(RestoreTest, NothingIsTouchedUnlessTheWholeBackupIsGood) {
    EXPECT_EQ(restore(), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("There is no backup in"));
    plan("unplug@in:9");
    EXPECT_EQ(backup(), ExitCode::noPedal);
    EXPECT_EQ(restore(), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("is incomplete. Finish it with \"backup\" first, or name"));
    plugInAgain();
    EXPECT_EQ(backup(), ExitCode::ok);
    std::filesystem::remove(folder / stamp / "Loop 20.wav");
    EXPECT_EQ(restore(), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("Loop 20.wav\" is missing or has been changed"));

    pedal.setLoop(1, loopOf(7, 1));
    pedal.setLoop(2, loopOf(7, 1));
    EXPECT_EQ(run({"restore", folder, "2-3", "20", "--skip-damaged", "--yes", "--snapshot", stamp}),
              ExitCode::someFailed);
    EXPECT_THAT(out.str(), HasSubstr("Loop 3: not in the backup; left as it is.\n"));
    EXPECT_THAT(out.str(), HasSubstr("1 loop written, 0 erased, 0 unchanged, 1 left out.\n"));
    EXPECT_THAT(err.str(), HasSubstr("Loop 20 is damaged in the backup; left as it is."));
    EXPECT_EQ(audio()[1], loopOf(1000, 10).audio);
    EXPECT_EQ(audio()[2], loopOf(7, 1).audio);
}

}  // namespace
}  // namespace kzq::test
