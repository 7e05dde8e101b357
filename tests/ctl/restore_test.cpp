#include "audio/wave.h"
#include "tool_fixture.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;
using ctl::Answer;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

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

TEST_F(RestoreTest, BackupEraseAllAndRestoreGiveBackEveryBitAlsoWithTheCablePulled) {
    for (std::uint8_t address = 0; address < 20; ++address) {
        pedal.setLoop(address, loopOf(1U + address * 171U, static_cast<std::uint8_t>(address + 1)));
    }
    const auto before = audio();
    plan("unplug@in:100");
    EXPECT_EQ(backup(), ExitCode::noPedal);
    plugInAgain();
    EXPECT_EQ(backup(), ExitCode::ok);
    EXPECT_EQ(run({"erase", "--all", "--yes"}), ExitCode::ok);
    EXPECT_EQ(audio(), std::vector<Bytes>(20));
    plan("unplug@out:60");
    EXPECT_EQ(restore(), ExitCode::noPedal);
    EXPECT_THAT(out.str(), HasSubstr(" of 20 changes made. Run the same command again to continue.\n"));
    EXPECT_THAT(audio(), Not(before));
    const auto written = sent(0xE2);
    plugInAgain();
    EXPECT_EQ(restore(), ExitCode::ok);
    EXPECT_EQ(audio(), before);
    EXPECT_EQ(sent(0xE2), 20 + 1) << "only the loop that was cut off is sent twice";
    EXPECT_LT(written, 20);
    EXPECT_THAT(pedal.violations(), IsEmpty());
    EXPECT_EQ(backup(), ExitCode::ok) << "the audio is that of the backup";
}

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
    EXPECT_EQ(out.str(),
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

TEST_F(RestoreTest, ALoopRecordedUnderTheQuestionIsNotTouched) {
    EXPECT_EQ(backup(), ExitCode::ok);
    pedal.setLoop(1, std::nullopt);
    answer = [this] {
        pedal.setLoop(1, loopOf(7, 1));
        return Answer::yes;
    };
    EXPECT_EQ(run({"restore", folder}), ExitCode::pedalRefused);
    EXPECT_EQ(audio()[1], loopOf(7, 1).audio);
    EXPECT_EQ(sent(0xE2) + sent(0xED), 0);

    pedal.setLoop(2, loopOf(5, 1));  // is erased; meanwhile loop 5 is recorded anew
    pedal.setMemoryListener([this](std::uint8_t address, const simulator::StoredLoop*) {
        if (address == 2) {
            pedal.setLoop(4, loopOf(8, 1));
        }
    });
    EXPECT_EQ(restore(), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("Loop 5 was changed on the pedal in the meantime, so nothing more was"));
    EXPECT_EQ(sent(0xE2), 0);
    pedal.setMemoryListener([this](std::uint8_t address, const simulator::StoredLoop* loop) {
        if (address == 4 && loop != nullptr) {  // gets shorter, so it is written before loop 2
            pedal.setLoop(19, loopOf(6, 1));
        }
    });
    EXPECT_EQ(restore(), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("Loop 20 was changed on the pedal in the meantime"));
    EXPECT_EQ(sent(0xE2), 1);
    pedal.setMemoryListener({});
}

TEST_F(RestoreTest, NothingIsTouchedUnlessTheWholeBackupIsGood) {
    EXPECT_EQ(restore(), ExitCode::fileError);
    EXPECT_THAT(err.str(), HasSubstr("There is no backup in"));
    EXPECT_EQ(backup(), ExitCode::ok);
    pedal.setLoop(1, std::nullopt);
    const auto before = audio();
    pedal.clearJournal();

    const auto good = contents("Loop 20.wav");
    auto bad = good;
    bad.back() ^= 1U;
    auto longer = good;
    longer.push_back(0);
    for (const auto& image : {bad, longer, Bytes(), wave(loopOf(1499, 30).audio, 2).value()}) {
        write("Loop 20.wav", image);
        EXPECT_EQ(restore(), ExitCode::fileError);
        EXPECT_THAT(err.str(), HasSubstr("Loop 20.wav\" is missing or has been changed"));
    }
    std::filesystem::remove(folder / "Loop 20.wav");
    EXPECT_EQ(restore(), ExitCode::fileError);
    EXPECT_EQ(audio(), before);
    EXPECT_EQ(sent(0xE2) + sent(0xE1), 0);
}

TEST_F(RestoreTest, ALoopThatCannotBeComparedEndsItUnharmed) {
    EXPECT_EQ(backup(), ExitCode::ok);
    pedal.setLoop(1, std::nullopt);
    plan("refuse@E1");
    EXPECT_EQ(restore(), ExitCode::pedalRefused);
    EXPECT_THAT(err.str(), HasSubstr("Loop 5 could not be compared, so nothing was changed"));
    EXPECT_EQ(sent(0xE2), 0);
}

}  // namespace
}  // namespace kzq::test
