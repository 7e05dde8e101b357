#include "operations/restore.h"

#include "operation_fixture.h"
#include "operations/backup.h"
#include "operations/told_backup.h"
#include "platform/little_endian.h"

namespace kzq::test {
namespace {

class RestoreWork : public OperationTest {
  protected:
    RestoreWork() {
        auto made = run([this] {
            const auto now = work->status();
            return runBackup(*work, {Generations(folder), *now, [] { return "2026-11-22 14-02-31"; }}, {});
        });
        order.folder = made.snapshot.value().folder;
    }

    Result<RestorePlan> plan() {
        hold({});
        return run([this] {
            return planRestore(
                *work, order, [](auto) {}, events());
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
    std::filesystem::path at(const std::string& file) const { return order.folder.path() / file; }
    /// Puts a file of its own in the place of one of the backup's.
    void replace(const std::string& file, const std::string& text) const {
        std::filesystem::remove(at(file));
        writeText(at(file), text);
    }
    void record(std::uint8_t address, std::size_t frames = 30) {
        pedal.setLoop(address, StoredLoop{noise(frames, 99), 1, 1});
    }

    RestoreOrder order{BackupFolder({})};
};

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
    pedal.setLoop(2, std::nullopt);
    asked = plan().value();
    const auto good = readText(at("Loop 3.wav"));
    replace("Loop 3.wav", std::string(good).replace(44, 1, "x"));
    outcome = restore(asked);
    EXPECT_THAT(said, ElementsAre("1 compared", "3 failed damaged", "20 compared"));
    EXPECT_THAT(toldRestore(asked, outcome).why, "Loop 3.wav is missing or has been changed");
    EXPECT_EQ(count("E2 2 0"), 0);
    replace("Loop 3.wav", good);
    for (const auto recorded : std::array<std::uint8_t, 2>{19, 7}) {  // in the backup, and not
        pedal.setLoop(2, std::nullopt);
        pedal.setLoop(19, std::nullopt);
        asked = plan().value();
        recordAfter(2, true, recorded);
        outcome = restore(asked);
        EXPECT_EQ(outcome.end.value().where, "Loop " + std::to_string(recorded + 1));
        EXPECT_EQ(count("E2 19 0"), 0);
        pedal.setMemoryListener({});
    }
    EXPECT_TRUE(restore().whole());
}

TEST_F(RestoreWork, NothingIsReadUnlessTheWholeBackupIsGood) {
    const auto good = readText(at("Loop 20.wav"));
    for (const auto& bad :
         {good + "x", good.substr(0, good.size() - 1) + "x", "x" + good.substr(1), std::string()}) {
        replace("Loop 20.wav", bad);
        EXPECT_EQ(refusal(), "damaged");
    }
    replace("Loop 20.wav", good);
    const auto text = readText(at("backup.json"));
    replace("backup.json", std::string(text).replace(text.find("44100"), 5, "63504000"));
    EXPECT_EQ(refusal(), "backup-too-long");
    std::filesystem::rename(at("backup.json"), at("backup.partial.json"));
    EXPECT_EQ(refusal(), "backup-incomplete");
}

TEST_F(RestoreWork, OnlyTheLoopsThatAreAskedForAndGood) {
    const auto before = audio();
    record(2);
    record(4);
    record(9);
    record(10);
    replace("Loop 11.wav", "");
    std::filesystem::rename(at("backup.json"), at("backup.partial.json"));
    order.slots = {3_slot, 4_slot, 5_slot, 11_slot};
    EXPECT_EQ(refusal(), "damaged");
    order.skipDamaged = true;
    const auto asked = plan().value();
    EXPECT_THAT(asked.absent, ElementsAre(4_slot, 5_slot));
    EXPECT_THAT(asked.damaged, ElementsAre(11_slot));
    EXPECT_TRUE(restore(asked).whole());
    EXPECT_THAT(said, ElementsAre("3 compared"));
    EXPECT_EQ(audio()[2], before[2]);
    EXPECT_EQ(audio()[4].size(), 30U * frameBytes);
    EXPECT_EQ(audio()[9].size(), 30U * frameBytes);
    order.slots = {4_slot};
    EXPECT_EQ(refusal(), "empty-slot");
}

TEST_F(RestoreWork, APedalThatWasFullCanBeRestored) {
    for (std::uint8_t address = 1; address < loopSlots; ++address) {
        pedal.setLoop(address, std::nullopt);
    }
    order.slots = {11_slot};
    std::uint32_t others = capacityFrames - 44'100 + 1;
    port.tamper = [&others](std::uint8_t request, std::span<std::uint8_t> reply) {
        if (request == wire::firstLoops.code) {
            storeU32(reply, 0, others);
        }
    };
    EXPECT_EQ(refusal(), "no-room");
    --others;
    EXPECT_TRUE(restore().whole());
}

}  // namespace
}  // namespace kzq::test
