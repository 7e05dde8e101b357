#include "operations/backup.h"

#include "operation_fixture.h"
#include "operations/backup_diff.h"
#include "operations/snapshot_draft.h"

namespace kzq::test {
namespace {

using testing::Each;
using testing::EndsWith;

class BackupWork : public OperationTest {
  protected:
    Outcome backup() {
        hold({});
        auto ended = run([this] {
            const auto now = work->status();
            total = bytesToRead(now->loops);
            return runBackup(*work, {generations, *now, [this] { return stamp; }}, events());
        });
        snapshot = ended.snapshot;
        return ended.outcome;
    }
    Outcome diff(bool read = true) {
        hold({});
        return run([&] {
            const auto now = work->status();
            const auto index = snapshot->folder.index();
            return runDiff(*work, {snapshot->folder, *index, now->loops, read}, events());
        });
    }
    /// Pulls the cable at a read, and puts it back.
    void cutAt(int read) {
        OperationTest::plan("unplug@in:" + std::to_string(read));
        EXPECT_EQ(end(backup()), "unplugged");
        pedal.clearFaults();
        pedal.plugIn();
        executor.settle();
    }
    void record(std::uint8_t address, std::uint32_t seed) {
        pedal.setLoop(address, StoredLoop{noise(512, seed), 1, 255});
    }
    std::filesystem::path at(const std::string& file) const { return folder / snapshot.value().name / file; }
    std::vector<std::string> files() const { return namesIn(snapshot.value().folder.path()); }

    Generations generations{folder};
    std::string stamp = "2026-11-22 14-02-31";
    std::optional<Snapshot> snapshot;
    std::uint64_t total = 0;
};

TEST_F(BackupWork, EachStandsBesideTheOthersAndSharesWhatIsTheSame) {
    EXPECT_TRUE(backup().whole());
    EXPECT_EQ(total, 64U + 6016U + 3072U + 264'640U + 1088U);
    const auto first = at("Loop 3.wav");
    record(9, 77);  // of the same length
    EXPECT_TRUE(backup().whole());
    EXPECT_EQ(snapshot->name, "2026-11-22 14-02-31-02");
    EXPECT_THAT(said, ElementsAre("1 kept", "3 kept", "10 saved", "11 kept", "20 kept"));
    EXPECT_TRUE(std::filesystem::equivalent(first, at("Loop 3.wav")));
    EXPECT_EQ(std::filesystem::status(first).permissions() & std::filesystem::perms::owner_write,
              std::filesystem::perms::none);
    EXPECT_THAT(files(), testing::UnorderedElementsAre("Loop 1.wav", "Loop 3.wav", "Loop 10.wav",
                                                       "Loop 11.wav", "Loop 20.wav", "backup.json"));

    // An edit is no backup of the loop, and where files have one name only, they are copied.
    const auto good = readText(first);
    std::filesystem::permissions(first, std::filesystem::perms::owner_all);
    writeText(first, good.substr(0, good.size() - 1) + "x");
    stamp = "2026-11-22 13-00-00";  // the clock was set back
    EXPECT_TRUE(backup().whole());
    EXPECT_EQ(snapshot->name, "2026-11-22 14-02-31-03");
    EXPECT_THAT(said, testing::Contains("3 saved"));
    EXPECT_EQ(readText(at("Loop 3.wav")), good);
    EXPECT_EQ(generations.find("").value().name, snapshot->name);
    EXPECT_EQ(generations.snapshots().size(), 3U);
}

TEST_F(BackupWork, AnEditedFileHidesNoOtherWithTheSameAudio) {
    record(9, 77);
    record(10, 77);
    EXPECT_TRUE(backup().whole());
    std::filesystem::permissions(at("Loop 10.wav"), std::filesystem::perms::owner_all);
    writeText(at("Loop 10.wav"), "x");
    EXPECT_TRUE(backup().whole());
    EXPECT_THAT(said, ElementsAre("1 kept", "3 kept", "10 kept", "11 kept", "20 kept"));
    EXPECT_TRUE(std::filesystem::equivalent(at("Loop 10.wav"), at("Loop 11.wav")));
}

TEST_F(BackupWork, GoesOnWhereItEndedAndMissesNoRecordingOfTheSameLength) {
    cutAt(11);  // loop 1 takes one read, loop 3 six, loop 10 three
    EXPECT_THAT(said, ElementsAre("1 saved", "3 saved", "10 saved"));
    EXPECT_EQ(generations.find("").error().kind, Trouble::Kind::backupIncomplete);
    const auto left = *snapshot;
    EXPECT_EQ(left.name, "unfinished 2026-11-22 14-02-31");
    record(9, 77);
    OperationTest::plan("refuse@E1:4");  // the comparison of loop 3, after 11, 20 and 1
    auto outcome = backup();
    EXPECT_THAT(said, ElementsAre("11 saved", "20 saved", "1 kept", "3 failed refused", "10 saved"));
    EXPECT_EQ(outcome.done(), 4U);
    EXPECT_FALSE(snapshot->folder.isComplete());
    cutAt(1);
    EXPECT_THAT(said, IsEmpty());
    outcome = backup();
    EXPECT_TRUE(outcome.whole());
    EXPECT_THAT(said, ElementsAre("1 kept", "3 kept", "10 kept", "11 kept", "20 kept"));
    EXPECT_THAT(namesIn(folder), ElementsAre("2026-11-22 14-02-31", left.name));
    EXPECT_THAT(namesIn(left.folder.path()), ElementsAre("Loop 10.wav", "backup.partial.json"))
        << "the recording that is no longer on the pedal";
}

TEST_F(BackupWork, WhatIsNotSeenToBeOursStays) {
    const auto foreign = generations.makeUnfinished(stamp).value();
    writeText(foreign / "mine.txt", "x");
    const auto odd = generations.makeUnfinished(stamp).value();
    writeText(odd / "backup.partial.json", "{}");
    const auto killed = generations.makeUnfinished(stamp).value();
    const auto used = SnapshotDraft::make(generations, stamp).value();
    EXPECT_TRUE(backup().whole());
    EXPECT_TRUE(std::filesystem::exists(foreign / "mine.txt"));
    EXPECT_TRUE(std::filesystem::exists(odd / "backup.partial.json"));
    EXPECT_TRUE(std::filesystem::exists(used->path())) << "another run is making it";
    EXPECT_FALSE(std::filesystem::exists(killed));
    writeText(folder / "2026-11-22 14-02-32", "a file of that name");
    stamp = "2026-11-22 14-02-32";
    EXPECT_TRUE(backup().whole());
    EXPECT_EQ(snapshot->name, "2026-11-22 14-02-32-02");
    std::filesystem::create_directory(folder / "9999-99-99 99-99-99-4294967295");
    EXPECT_FALSE(backup().whole()) << "no name comes after that one";
}

TEST_F(BackupWork, ABackupOfAnOlderVersionIsTheFirst) {
    EXPECT_TRUE(backup().whole());
    for (const auto& name : files()) {
        std::filesystem::rename(at(name), folder / name);
    }
    std::filesystem::remove(at(""));
    EXPECT_EQ(generations.find("").value().folder.path(), folder.path());
    EXPECT_TRUE(backup().whole());
    EXPECT_TRUE(std::filesystem::equivalent(folder / "Loop 3.wav", at("Loop 3.wav")));
    EXPECT_EQ(generations.find("").value().name, stamp);
    EXPECT_EQ(generations.find(".").value().folder.path(), folder.path());
    EXPECT_FALSE(generations.find("../x"));
}

TEST_F(BackupWork, DifferencesAreFoundWithAndWithoutTheAudio) {
    EXPECT_TRUE(backup().whole());
    EXPECT_TRUE(diff().whole());
    EXPECT_THAT(said, Each(EndsWith(" unchanged")));
    record(9, 77);
    record(1, 1);
    pedal.setLoop(19, std::nullopt);
    pedal.setLoop(10, StoredLoop{noise(44100, 4), 1, 1});  // another tempo
    std::filesystem::remove(at("Loop 3.wav"));
    auto outcome = diff();
    EXPECT_THAT(said, ElementsAre("1 unchanged", "2 failed differs", "3 failed damaged", "10 failed differs",
                                  "11 unchanged", "20 failed differs"));
    EXPECT_EQ(outcome.slots[1].trouble->words + outcome.slots[3].trouble->words, "recordedchanged");
    EXPECT_EQ(outcome.slots[5].trouble->words, "erased");
    pedal.clearJournal();
    outcome = diff(false);
    EXPECT_EQ(count("E1 9 255"), 0);
    EXPECT_THAT(said, ElementsAre("1 same length", "2 failed differs", "3 same length", "10 same length",
                                  "11 same length", "20 failed differs"));
}

TEST_F(BackupWork, LoopsOfTwoMomentsAreNoBackup) {
    onBegin = [this](SlotNumber slot, Step /*step*/) {
        if (slot == 20_slot) {
            pedal.setLoop(0, StoredLoop{noise(2, 2), 1, 1});
        }
    };
    EXPECT_EQ(end(backup()), "changed");
    EXPECT_TRUE(generations.snapshots().empty());
    onBegin = [this](auto...) { pedal.setLoop(19, StoredLoop{noise(2, 2), 1, 1}); };
    EXPECT_FALSE(backup().whole());
    EXPECT_EQ(said.back(), "20 failed changed-while-read");
    onBegin = [](auto...) {};
    EXPECT_TRUE(backup().whole());
}

TEST_F(BackupWork, ALengthThatCannotBeIsNeitherReadNorCounted) {
    port.tamper = [](std::uint8_t code, std::span<std::uint8_t> reply) {
        if (code == 0xEB) {
            std::ranges::fill(reply.first(4), std::uint8_t{0x7F});
        }
    };
    const auto outcome = backup();
    EXPECT_EQ(total, 6016U + 3072U + 264'640U + 1088U);
    EXPECT_EQ(said.front(), "1 failed too-large");
    EXPECT_EQ(outcome.done(), 4U);
    EXPECT_FALSE(snapshot->folder.isComplete());
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
