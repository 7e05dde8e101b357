#include "operations/import.h"

#include <cerrno>

#include "operation_fixture.h"

namespace kzq::test {
namespace {

using testing::UnorderedElementsAre;

class ImportTest : public OperationTest {
  protected:
    static ImportOrder::Item item(SlotNumber slot, std::uint64_t frames) {
        return {slot, "Loop " + std::to_string(slot.number()), {frames}};
    }
    ImportOrder order(Batches batches) {
        return {.loops = {item(1_slot, 1), item(3_slot, 1000), item(10_slot, 512)},
                .folder = folder,
                .write =
                    [this](const auto& where, auto name, auto extension, auto bytes) {
                        executor.sleep(writing);
                        heldByLink = heldByLink || looper().operation() != KZQ7306::idle;
                        return name == full ? Result<std::filesystem::path>(
                                                  Trouble{Trouble::Kind::file, "write", ENOSPC})
                                            : writeNewFile(where, name, extension, bytes);
                    },
                .batches = batches};
    }
    Outcome import(Batches batches) { return import(order(batches)); }
    Outcome import(const ImportOrder& order) {
        return run([&] { return runImport(*work, order, events()); });
    }

    std::string full;  ///< the file for which there is no room
    Executor::Duration writing{};
    bool heldByLink = false;  ///< while a file was written
};

TEST_F(ImportTest, OneBatchGoesOnAfterAFileThatFailsAndEachBatchDoesNot) {
    full = "Loop 3";
    auto outcome = import(Batches::one);
    EXPECT_THAT(said, ElementsAre("1 saved", "3 failed file", "10 saved"));
    EXPECT_THAT(namesIn(folder), ElementsAre("Loop 1.wav", "Loop 10.wav"));
    EXPECT_EQ(end(outcome), "");
    EXPECT_EQ(outcome.done(), 2U);
    EXPECT_EQ(outcome.slots[1].trouble->error, ENOSPC);
    EXPECT_EQ(outcome.slots[1].frames.count, 1000U);  // it came
    EXPECT_TRUE(heldByLink);

    hold({});
    heldByLink = false;
    outcome = import(Batches::each);
    EXPECT_THAT(said, ElementsAre("1 saved", "3 failed file"));
    EXPECT_EQ(end(outcome), "file");
    EXPECT_FALSE(heldByLink);
    EXPECT_EQ(count("E1 9 255") + count("reset") + count("EF 1 0"), 0);
    EXPECT_THAT(namesIn(folder), UnorderedElementsAre("Loop 1.wav", "Loop 1-2.wav", "Loop 10.wav"));
}

TEST_F(ImportTest, WhatCannotBeOrIsNotWhatTheTableHadIsLeftOut) {
    auto some = order(Batches::each);
    some.exact = true;
    some.loops = {item(2_slot, 0), item(3_slot, 999), item(20_slot, 63'504'001), item(11_slot, 44100)};
    some.freeSpace = [](const auto&) { return 44 + 999 * 6 + 44 + 44100 * 6 - 1; };
    EXPECT_EQ(end(import(some)), "disk-full");
    EXPECT_THAT(wire(), IsEmpty());
    some.freeSpace = [](const auto&) { return 44 + 999 * 6 + 44 + 44100 * 6; };
    const auto outcome = import(some);
    EXPECT_THAT(said, ElementsAre("2 failed empty-slot", "3 failed changed-while-read", "20 failed too-large",
                                  "11 saved"));
    EXPECT_EQ(outcome.done(), 1U);
    EXPECT_EQ(count("E1 19 7"), 0);
    some.exact = false;
    some.loops = {item(3_slot, 999)};
    EXPECT_TRUE(import(some).whole());
}

/// A file that takes its time is no silence of the pedal.
TEST_F(ImportTest, ASlowDiskDoesNotResetThePedal) {
    writing = 10s;
    hold({.silence = 5s, .leaveBehind = true});
    executor.mainAfter(3s, [this] { cancel(); });
    EXPECT_EQ(end(import(Batches::one)), "cancelled");
    EXPECT_EQ(count("reset"), 1);  // the cancel's own
    EXPECT_EQ(executor.elapsed(), 10s);
    EXPECT_THAT(said, ElementsAre("1 saved"));
}

}  // namespace
}  // namespace kzq::test
