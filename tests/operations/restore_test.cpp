#include "operations/restore.h"

#include "operation_fixture.h"
#include "operations/backup.h"

namespace kzq::test {
namespace {

class RestoreWork : public OperationTest {
  protected:
    RestoreWork() {
        EXPECT_TRUE(run([this] {
                        return runBackup(*work, planBackup(*work, BackupFolder(folder)).value(), {});
                    }).whole());
    }

    Result<RestorePlan> plan() {
        hold({});
        return run([this] {
            return planRestore(
                *work, BackupFolder(folder), [](auto) {}, events());
        });
    }
    Outcome restore(const RestorePlan& plan) {
        return run([&] { return runRestore(*work, plan, events()); });
    }
    Outcome restore() { return restore(plan().value()); }
    std::string refusal() {
        const auto refused = plan();
        EXPECT_FALSE(refused);
        EXPECT_EQ(count("E1 2 120"), 0);
        return refused ? "" : std::string(troubleName(refused.error().kind));
    }
    /// By address; empty slots give no bytes.
    std::vector<Bytes> audio() const {
        std::vector<Bytes> all;
        for (const auto& loop : pedal.memory()) {
            all.push_back(loop ? loop->audio : Bytes());
        }
        return all;
    }
    void record(std::uint8_t address, std::size_t frames = 30) {
        pedal.setLoop(address, StoredLoop{noise(frames, 99), 1, 1});
    }
};

TEST_F(RestoreWork, GivesBackEveryBitAlsoWithTheCablePulled) {
    const auto before = audio();
    record(4);
    record(2, 1000);  // of the length in the backup
    for (const auto address : std::array<std::uint8_t, 3>{9, 10, 19}) {
        pedal.setLoop(address, std::nullopt);
    }
    OperationTest::plan("unplug@out:12");
    EXPECT_EQ(end(restore()), "unplugged");
    EXPECT_THAT(said, ElementsAre("5 erased", "3 compared", "10 compared"));
    pedal.plugIn();
    executor.settle();
    EXPECT_TRUE(restore().whole());
    EXPECT_THAT(said, ElementsAre("11 compared", "20 compared"));
    EXPECT_EQ(audio(), before);
}

TEST_F(RestoreWork, OnlyWhatWasComparedOrAskedAboutIsTouched) {
    record(4);  // is erased
    pedal.setLoop(2, std::nullopt);
    pedal.setLoop(19, std::nullopt);
    const auto recordAfter = [this](std::uint8_t changed, bool filled, std::uint8_t recorded) {
        pedal.setMemoryListener([=, this](std::uint8_t address, const simulator::StoredLoop* loop) {
            if (address == changed && (loop != nullptr) == filled) {
                record(recorded);
            }
        });
    };
    auto asked = plan().value();
    record(0);
    EXPECT_EQ(end(restore(asked)), "changed");
    EXPECT_EQ(count("ED 4 0") + count("E2 2 0"), 0);

    asked = plan().value();
    recordAfter(4, false, 0);
    record(0, 1);
    asked = plan().value();
    auto outcome = restore(asked);
    EXPECT_EQ(outcome.end.value().where, "Loop 1");
    EXPECT_THAT(said, ElementsAre("5 erased"));

    pedal.setMemoryListener({});
    asked = plan().value();
    recordAfter(2, true, 19);
    outcome = restore(asked);
    EXPECT_EQ(outcome.end.value().where, "Loop 20");
    EXPECT_EQ(count("E2 19 0"), 0);
    pedal.setMemoryListener({});
    EXPECT_TRUE(restore().whole());
}

TEST_F(RestoreWork, NothingIsReadUnlessTheWholeBackupIsGood) {
    const auto path = folder / "Loop 20.wav";
    const auto good = readText(path);
    for (const auto& bad : {good + "x", good.substr(0, good.size() - 1) + "x", std::string()}) {
        writeText(path, bad);
        EXPECT_EQ(refusal(), "damaged");
    }
    writeText(path, good);
    const auto index = folder / "backup.json";
    const auto text = readText(index);
    writeText(index, std::string(text).replace(text.find("44100"), 5, "63504000"));
    EXPECT_EQ(refusal(), "backup-too-long");
    std::filesystem::rename(index, folder / "backup.partial.json");
    EXPECT_EQ(refusal(), "backup-incomplete");
}

TEST_F(RestoreWork, ALoopThatCannotBeComparedEndsIt) {
    OperationTest::plan("refuse@E1:2");
    EXPECT_EQ(plan().error().kind, Trouble::Kind::refused);
    EXPECT_THAT(said, ElementsAre("3 failed refused"));
}

}  // namespace
}  // namespace kzq::test
