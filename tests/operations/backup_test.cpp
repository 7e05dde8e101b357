#include "operations/backup.h"

#include "operation_fixture.h"

namespace kzq::test {
namespace {

using testing::Each;
using testing::EndsWith;

class BackupWork : public OperationTest {
  protected:
    Result<BackupPlan> plan() {
        return run([this] { return planBackup(*work, BackupFolder(folder)); });
    }
    Outcome backup() {
        hold({});
        return run([this] {
            auto plan = planBackup(*work, BackupFolder(folder));
            total = bytesToRead(plan.value());
            return runBackup(*work, std::move(*plan), events());
        });
    }
    /// Pulls the cable at a read, and puts it back.
    void cutAt(int read) {
        OperationTest::plan("unplug@in:" + std::to_string(read));
        EXPECT_EQ(end(backup()), "unplugged");
        pedal.plugIn();
        executor.settle();
    }
    void record(std::uint8_t address, std::uint32_t seed) {
        pedal.setLoop(address, StoredLoop{noise(512, seed), 1, 255});
    }
    bool whole() const { return BackupFolder(folder).isComplete(); }

    std::uint64_t total = 0;
};

TEST_F(BackupWork, GoesOnWhereItEndedAndMissesNoRecordingOfTheSameLength) {
    cutAt(11);  // loop 1 takes one read, loop 3 six, loop 10 three
    EXPECT_THAT(said, ElementsAre("1 saved", "3 saved", "10 saved"));
    EXPECT_THAT(namesIn(folder), testing::UnorderedElementsAre("Loop 1.wav", "Loop 3.wav", "Loop 10.wav",
                                                               "backup.partial.json"));
    record(9, 77);
    OperationTest::plan("refuse@E1:4");  // the comparison of loop 3, after 11, 20 and 1
    auto outcome = backup();
    EXPECT_THAT(said, ElementsAre("11 saved", "20 saved", "1 kept", "3 failed refused", "10 saved"));
    EXPECT_EQ(outcome.done(), 4U);
    EXPECT_EQ(outcome.slots.back().file.filename(), "Loop 10-2.wav");
    EXPECT_FALSE(whole());
    cutAt(2);
    EXPECT_THAT(said, IsEmpty());
    outcome = backup();
    EXPECT_TRUE(outcome.whole());
    EXPECT_THAT(said, ElementsAre("3 saved", "1 kept", "10 kept", "11 kept", "20 kept"));
    EXPECT_TRUE(whole());
}

TEST_F(BackupWork, WhatAnEarlierRunSavedCountsAsDone) {
    cutAt(11);
    pedal.clearFaults();
    OperationTest::plan("unplug@in");
    const auto outcome = backup();
    EXPECT_EQ(outcome.done(), 3U);
    EXPECT_EQ(outcome.wanted, 5U);
}

TEST_F(BackupWork, AWholeBackupIsComparedAndNeverTouched) {
    EXPECT_TRUE(backup().whole());
    const auto before = namesIn(folder);
    EXPECT_TRUE(backup().whole());
    EXPECT_EQ(total, 64U + 6016U + 3072U + 264'640U + 1088U);
    EXPECT_THAT(said, Each(EndsWith(" unchanged")));

    record(9, 77);
    record(1, 1);
    pedal.setLoop(19, std::nullopt);
    pedal.setLoop(10, StoredLoop{noise(44100, 4), 1, 1});  // another tempo
    writeText(folder / "Loop 3.wav", "x");
    const auto outcome = backup();
    EXPECT_THAT(said, ElementsAre("1 unchanged", "2 failed differs", "3 failed damaged", "10 failed differs",
                                  "11 unchanged", "20 failed differs"));
    EXPECT_EQ(outcome.done(), 2U);
    EXPECT_EQ(outcome.slots[1].trouble->words + outcome.slots[3].trouble->words, "recordedchanged");
    EXPECT_EQ(outcome.slots[5].trouble->words, "erased");
    EXPECT_EQ(namesIn(folder), before);
}

TEST_F(BackupWork, LoopsOfTwoMomentsAreNoBackup) {
    onBegin = [this](SlotNumber slot, Step /*step*/) {
        if (slot == 20_slot) {
            pedal.setLoop(0, StoredLoop{noise(2, 2), 1, 1});
        }
    };
    EXPECT_EQ(end(backup()), "changed");
    EXPECT_FALSE(whole());
    EXPECT_TRUE(backup().whole());
}

TEST_F(BackupWork, ALengthThatCannotBeIsNeitherReadNorCounted) {
    port.tamper = [](std::uint8_t code, std::span<std::uint8_t> reply) {
        if (code == 0xEB) {
            std::ranges::fill(reply.first(4), std::uint8_t{0xFF});
        }
    };
    const auto outcome = backup();
    EXPECT_EQ(total, 6016U + 3072U + 264'640U + 1088U);
    EXPECT_EQ(said.front(), "1 failed too-large");
    EXPECT_EQ(outcome.done(), 4U);
    EXPECT_FALSE(whole());
}

TEST_F(BackupWork, AFileThatCannotBeWrittenEndsIt) {
    onBegin = [this](auto...) { std::filesystem::create_directory(folder / "backup.partial.json"); };
    auto outcome = backup();
    EXPECT_THAT(said, ElementsAre("1 failed file"));
    EXPECT_EQ(outcome.end, outcome.slots.back().trouble);
    EXPECT_EQ(outcome.slots.back().file, folder.path());
    EXPECT_EQ(outcome.done(), 0U);

    std::filesystem::remove(folder / "backup.partial.json");
    onBegin = [this](auto...) {
        std::filesystem::remove_all(folder);
        writeText(folder, "");
    };
    outcome = backup();
    EXPECT_EQ(end(outcome), "file");
    EXPECT_EQ(outcome.slots.back().file, folder.path());
}

TEST(BackupIndex, OnlyAWholeIndexIsRead) {
    BackupIndex index;
    index.firmware = "1.05";
    index.loops.emplace(3_slot, BackupEntry{"Loop 3.wav", 7, 90, 255, std::string(64, 'a')});
    index.loops.emplace(20_slot, BackupEntry{"20.wav", 0xFFFFFFFF, 1, 1, std::string(64, '0')});
    const auto text = indexText(index);
    EXPECT_EQ(indexFromText(text), index);

    const auto reject = [&](const std::string& from, const std::string& to) {
        auto changed = text;
        const auto place = changed.find(from);
        ASSERT_NE(place, std::string::npos) << from;
        changed.replace(place, from.size(), to);
        EXPECT_FALSE(indexFromText(changed)) << changed;
    };
    reject("kzq7306-backup", "other");
    reject("Loop 3.wav", "../Loop 3.wav");
    reject("Loop 3.wav", "20.wav");
    reject(R"("slot": 3)", R"("slot": 20)");
    reject(R"("samples": 7)", R"("samples": 4294967296)");
    reject("aaaa", "aaa");
    reject("}", "");
}

}  // namespace
}  // namespace kzq::test
