#include <map>

#include "pedal_fixture.h"

namespace kzq::test {
namespace {

class Import : public PedalTest {
  protected:
    bool importLoops(std::vector<std::uint8_t> slots) {
        return looper().importLoops(
            std::move(slots),
            [this](std::uint32_t total, std::uint8_t slot) {
                EXPECT_FALSE(executor.onMainThread());
                operations.push_back(looper().operation());
                totals[slot] = total;
                if (total >= cancelAt) {
                    looper().cancelTransfer();
                }
            },
            [this](std::optional<Bytes> file, std::uint8_t slot) {
                order.push_back(slot);
                const auto trouble = looper().lastTrouble();
                reasons.emplace_back(trouble ? troubleName(trouble->kind) : "");
                files[slot] = std::move(file);
            },
            [this](std::uint8_t count) {
                EXPECT_EQ(looper().operation(), KZQ7306::idle);
                counts.push_back(count);
            });
    }

    void expectWhole(std::uint8_t slot) {
        const auto expected = wave(pedal.memory().at(slot - 1U)->audio, 2);
        EXPECT_EQ(files[slot], expected) << int{slot};
    }

    std::vector<std::int32_t> operations;
    std::map<std::uint8_t, std::uint32_t> totals;
    std::map<std::uint8_t, std::optional<Bytes>> files;
    std::vector<std::uint8_t> order;
    std::vector<std::string> reasons;
    std::vector<std::uint8_t> counts;
};

TEST_F(Import, BringsEveryLoopBitForBitInTheOrderOfTheList) {
    ASSERT_TRUE(importLoops({20, 1, 3, 10, 11}));
    EXPECT_THAT(counts, IsEmpty());
    EXPECT_FALSE(looper().cancel());
    executor.settle();
    EXPECT_THAT(order, ElementsAre(20, 1, 3, 10, 11));
    EXPECT_THAT(counts, ElementsAre(5));
    for (const auto slot : order) {
        expectWhole(slot);
    }
    // The total counts the padding and goes on growing across loops.
    EXPECT_EQ(totals, (std::map<std::uint8_t, std::uint32_t>{
                          {20, 1088}, {1, 1152}, {3, 7168}, {10, 10240}, {11, 10240 + 264640}}));
    const auto wire = actions();
    EXPECT_THAT(std::vector(wire.begin(), wire.begin() + 12),
                ElementsAre("E1 19 7", "in 1024", "in 64", "E1 0 1", "in 64", "E1 2 2", "in 1024", "in 1024",
                            "in 1024", "in 1024", "in 1024", "in 896"));
    EXPECT_EQ(looper().operation(), KZQ7306::idle);
}

TEST_F(Import, ASlotThatFailsDoesNotStopTheBatch) {
    pedal.plan({FaultKind::refuse, Where::control, 0xE1, 2});
    pedal.plan({FaultKind::stall, Where::bulkIn, {}, 3});
    importLoops({0, 1, 21, 2, 3, 3, 10, 11});
    executor.settle();
    EXPECT_THAT(order, ElementsAre(0, 1, 21, 2, 3, 3, 10, 11));
    EXPECT_THAT(reasons, ElementsAre("bad-request", "", "bad-request", "empty-slot", "refused",
                                     "transfer-failed", "", ""));
    EXPECT_THAT(counts, ElementsAre(3));
    for (const auto slot : {1, 10, 11}) {
        expectWhole(static_cast<std::uint8_t>(slot));
    }
    EXPECT_THAT(actions(), Not(Contains("reset")));
    EXPECT_THAT(actions(), Not(Contains("EF 1 0")));
}

TEST_F(Import, CancelStopsBeforeTheNextPieceResetsAndAbandons) {
    cancelAt = 64 + 2048;
    importLoops({1, 3, 10});
    executor.settle();
    EXPECT_THAT(order, ElementsAre(1, 3));
    EXPECT_THAT(reasons, ElementsAre("", "cancelled"));
    EXPECT_THAT(counts, ElementsAre(1));
    EXPECT_THAT(actions(), ElementsAre("E1 0 1", "in 64", "E1 2 2", "in 1024", "in 1024", "reset", "EF 1 0"));
    EXPECT_TRUE(looper().cancel());  // until the next batch is accepted
    EXPECT_EQ(looper().importLoop(1, [](std::uint32_t, std::uint8_t) {}), std::nullopt);
    pedal.excuseStream();  // only a batch abandons it

    cancelAt = ~0U;
    EXPECT_TRUE(importLoops({3}));
    executor.settle();
    expectWhole(3);
}

TEST_F(Import, ASecondStartIsRefusedFromTheMomentTheFirstIsAccepted) {
    EXPECT_TRUE(importLoops({1}));
    EXPECT_EQ(looper().operation(), KZQ7306::idle);  // it has not begun
    EXPECT_FALSE(importLoops({11}));
    EXPECT_FALSE(looper().eraseLoops({1}, [](std::uint8_t) {}));
    EXPECT_FALSE(looper().flashFirmware(Bytes{1}, [](bool) {}));
    executor.settle();
    EXPECT_THAT(order, ElementsAre(1));
    EXPECT_THAT(operations, ElementsAre(KZQ7306::importingOrErasing));
    EXPECT_EQ(looper().operation(), KZQ7306::idle);
    EXPECT_TRUE(importLoops({11}));
    executor.settle();
    EXPECT_THAT(counts, ElementsAre(1, 1));
}

}  // namespace
}  // namespace kzq::test
