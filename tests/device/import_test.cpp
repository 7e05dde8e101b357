#include <algorithm>
#include <map>

#include "audio/wave.h"
#include "device/simulator/simulated_port.h"
#include "device_fixture.h"

namespace kzq::test {
namespace {

using simulator::FaultKind;
using simulator::PedalMemory;
using simulator::SimulatedPedal;
using simulator::SimulatedPort;
using simulator::StoredLoop;
using simulator::WireEvent;
using Where = simulator::Fault::Where;

Bytes noise(std::size_t frames, std::uint32_t seed) {
    Bytes audio(frames * 6);
    std::generate(audio.begin(), audio.end(), [&seed] {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<std::uint8_t>(seed >> 24U);
    });
    return audio;
}

/// A pedal with loops in slots 1, 3, 10, 11 and 20, and the callbacks of one batch.
class Import : public DeviceLinkTest {
  protected:
    Import() {
        load(port);
        pedal.plugIn();
        start();
        pedal.clearJournal();
    }
    ~Import() override { EXPECT_THAT(pedal.violations(), IsEmpty()); }

    static PedalMemory memory() {
        PedalMemory loops;
        loops[0] = StoredLoop{noise(1, 1), 90, 1};      // 6 bytes, 64 on the wire
        loops[2] = StoredLoop{noise(1000, 2), 120, 2};  // 6000 bytes, 6016 on the wire
        loops[9] = StoredLoop{noise(512, 3), 1, 255};   // 3072 bytes: no padding, whole pieces
        loops[10] = StoredLoop{noise(44100, 4), 255, 1};
        loops[19] = StoredLoop{noise(171, 5), 60, 7};  // 1026 bytes, 1088 on the wire
        return loops;
    }

    bool importLoops(std::vector<std::uint8_t> slots) {
        return looper().importLoops(
            std::move(slots),
            [this](std::uint32_t total, std::uint8_t slot) {
                EXPECT_FALSE(executor.onMainThread());
                EXPECT_TRUE(looper().busy());
                totals[slot] = total;
                if (total >= cancelAt) {
                    looper().cancelTransfer();
                }
            },
            [this](std::optional<Bytes> file, std::uint8_t slot) {
                order.push_back(slot);
                reasons.push_back(file ? Failure::none : looper().lastFailure());
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

    /// Lengths asked for on the bulk-in pipe.
    std::vector<std::uint32_t> reads() const {
        std::vector<std::uint32_t> lengths;
        for (const auto& event : pedal.journal()) {
            if (event.kind == WireEvent::Kind::bulkIn) {
                lengths.push_back(event.length);
            }
        }
        return lengths;
    }

    /// Commands and resets from the `first` event on, as text.
    std::vector<std::string> commandsAfter(std::size_t first) const {
        std::vector<std::string> texts;
        const auto events = pedal.journal();
        for (auto i = first; i < events.size(); ++i) {
            if (events[i].kind == WireEvent::Kind::control) {
                texts.push_back("E" + std::to_string(events[i].code & 15U));
            } else if (events[i].kind == WireEvent::Kind::reset) {
                texts.emplace_back("reset");
            }
        }
        return texts;
    }

    SimulatedPedal pedal{executor, {memory()}};
    SimulatedPort port{executor, pedal};
    std::uint32_t cancelAt = ~0U;
    std::map<std::uint8_t, std::uint32_t> totals;
    std::map<std::uint8_t, std::optional<Bytes>> files;
    std::vector<std::uint8_t> order;
    std::vector<Failure> reasons;
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
    const auto lengths = reads();
    EXPECT_THAT(std::vector(lengths.begin(), lengths.begin() + 9),
                ElementsAre(1024, 64, 64, 1024, 1024, 1024, 1024, 1024, 896));
    EXPECT_EQ(looper().operation(), KZQ7306::idle);
}

TEST_F(Import, AsksForALoopWithItsAddressAndChannel) {
    importLoops({20});
    executor.settle();
    const auto events = pedal.journal();
    const auto found = std::find_if(events.begin(), events.end(),
                                    [](const WireEvent& event) { return event.code == command::importLoop; });
    ASSERT_NE(found, events.end());
    EXPECT_EQ(found->value, 19);
    EXPECT_EQ(found->index, 7);
    EXPECT_EQ(found->length, 8U);
    EXPECT_THAT(commandsAfter(0), ElementsAre("E8", "E9", "E10", "E11", "E12", "E1"));
}

TEST_F(Import, ASlotThatFailsDoesNotStopTheBatch) {
    pedal.plan({FaultKind::refuse, Where::control, command::importLoop, 2});
    pedal.plan({FaultKind::stall, Where::bulkIn, {}, 3});
    importLoops({0, 1, 21, 2, 3, 3, 10, 11});
    executor.settle();
    EXPECT_THAT(order, ElementsAre(0, 1, 21, 2, 3, 3, 10, 11));
    EXPECT_THAT(reasons,
                ElementsAre(Failure::badRequest, Failure::none, Failure::badRequest, Failure::emptySlot,
                            Failure::refused, Failure::transferFailed, Failure::none, Failure::none));
    EXPECT_THAT(counts, ElementsAre(3));
    for (const auto slot : {1, 10, 11}) {
        expectWhole(static_cast<std::uint8_t>(slot));
    }
    const auto commands = commandsAfter(0);
    EXPECT_EQ(std::count(commands.begin(), commands.end(), "reset"), 0);
    EXPECT_EQ(std::count(commands.begin(), commands.end(), "E15"), 0);
}

TEST_F(Import, AnOverrunFailsTheLoop) {
    pedal.plan({FaultKind::overrun, Where::bulkIn, {}, 2});
    importLoops({3});
    executor.settle();
    EXPECT_EQ(files[3], std::nullopt);
}

TEST_F(Import, AShortAnswerIsReadOnUntilItIsWhole) {
    pedal.plan({FaultKind::shorten, Where::bulkIn, {}, 2});
    importLoops({3});
    executor.settle();
    expectWhole(3);
    EXPECT_THAT(reads(), ElementsAre(1024, 1024, 512, 1024, 1024, 1024, 896));
}

TEST_F(Import, CancelStopsBeforeTheNextPieceResetsAndAbandons) {
    cancelAt = 64 + 2048;
    importLoops({1, 3, 10});
    executor.settle();
    EXPECT_THAT(order, ElementsAre(1, 3));
    EXPECT_THAT(reasons, ElementsAre(Failure::none, Failure::cancelled));
    EXPECT_THAT(counts, ElementsAre(1));
    EXPECT_THAT(reads(), ElementsAre(64, 1024, 1024));
    const auto commands = commandsAfter(0);
    ASSERT_GE(commands.size(), 3U);
    EXPECT_THAT(std::vector(commands.end() - 3, commands.end()), ElementsAre("E1", "reset", "E15"));
    EXPECT_TRUE(looper().cancel());  // until the next batch is accepted
    EXPECT_EQ(looper().importLoop(1, [](std::uint32_t, std::uint8_t) {}), std::nullopt);

    cancelAt = ~0U;
    EXPECT_TRUE(importLoops({3}));
    executor.settle();
    expectWhole(3);
}

TEST_F(Import, CancelBetweenAcceptanceAndStartReadsNothing) {
    importLoops({1, 3});
    looper().cancelTransfer();
    executor.settle();
    EXPECT_THAT(order, IsEmpty());
    EXPECT_THAT(counts, ElementsAre(0));
    EXPECT_THAT(commandsAfter(0), ElementsAre("E8", "reset", "E15"));
}

TEST_F(Import, RefusesWhatIsIncompleteAndWhatComesWhileBusy) {
    EXPECT_FALSE(importLoops({}));
    const auto bytes = [](std::uint32_t, std::uint8_t) {};
    const auto file = [](const std::optional<Bytes>&, std::uint8_t) {};
    const auto done = [](std::uint8_t) {};
    EXPECT_FALSE(looper().importLoops({1}, nullptr, file, done));
    EXPECT_FALSE(looper().importLoops({1}, bytes, nullptr, done));
    EXPECT_FALSE(looper().importLoops({1}, bytes, file, nullptr));
    EXPECT_EQ(looper().importLoop(1, nullptr), std::nullopt);
    pedal.setBusy(true);
    EXPECT_FALSE(importLoops({1}));
    pedal.setBusy(false);
    looper().setCancel(true);
    looper().setOperation(KZQ7306::flashing);
    EXPECT_FALSE(importLoops({1}));
    EXPECT_TRUE(looper().cancel());  // only an accepted batch clears it
    executor.settle();
    EXPECT_THAT(counts, IsEmpty());
}

TEST_F(Import, TwoBatchesAcceptedAtOnceRunOneAfterTheOtherAndEndIdle) {
    EXPECT_TRUE(importLoops({1}));
    EXPECT_TRUE(importLoops({11}));
    executor.settle();
    EXPECT_THAT(order, ElementsAre(1, 11));
    EXPECT_THAT(counts, ElementsAre(1, 1));
    EXPECT_EQ(looper().operation(), KZQ7306::idle);
}

TEST_F(Import, ADepartureInMidReadEndsTheBatchAtOnceAndIsToldAfterIt) {
    pedal.plan({FaultKind::silence, Where::bulkIn, {}, 3});
    importLoops({3, 11});
    executor.advance(1min);
    EXPECT_THAT(counts, IsEmpty());  // the pedal says nothing, and no time limit ends the read
    EXPECT_EQ(looper().operation(), KZQ7306::importingOrErasing);
    pedal.unplug();
    executor.settle();
    EXPECT_THAT(order, ElementsAre(3, 11));
    EXPECT_THAT(counts, ElementsAre(0));
    EXPECT_THAT(delegate->events, ElementsAre("connected p@0", "disconnected@60000"));
    EXPECT_EQ(port.openHandles(), 0);

    pedal.plugIn();
    executor.settle();
    EXPECT_EQ(delegate->events.back(), "connected p@60000");
    EXPECT_TRUE(importLoops({11}));
    executor.settle();
    expectWhole(11);
    EXPECT_EQ(executor.mainThreadWaits(), 0U);
}

TEST_F(Import, InterruptEndsAReadThatHangs) {
    pedal.plan({FaultKind::silence, Where::bulkIn, {}, 3});
    importLoops({3, 11});
    executor.advance(30s);
    looper().cancelTransfer();
    looper().interrupt();
    executor.settle();
    EXPECT_THAT(counts, ElementsAre(0));
    EXPECT_EQ(looper().operation(), KZQ7306::idle);
    EXPECT_EQ(commandsAfter(0).back(), "E15");
}

TEST_F(Import, ThePollPausesWhileABatchRuns) {
    pedal.plan({FaultKind::silence, Where::bulkIn, {}, 1});
    importLoops({1});
    executor.settle();
    pedal.clearJournal();
    executor.advance(30s);
    EXPECT_THAT(commandsAfter(0), IsEmpty());
    pedal.reset();
    executor.advance(5s);
    EXPECT_EQ(delegate->events.back().substr(0, 9), "changed 5");
}

}  // namespace
}  // namespace kzq::test
