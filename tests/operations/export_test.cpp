#include "operations/export.h"

#include "operation_fixture.h"
#include "platform/little_endian.h"

namespace kzq::test {
namespace {

class ExportTest : public OperationTest {
  protected:
    /// Of 2 and 4, which are empty, and 3, which the user has seen.
    ExportOrder order(Batches batches = Batches::one) {
        return {.exports = {{2_slot, copy(2_slot, 200)},
                            {3_slot, copy(3_slot, 300)},
                            {4_slot, copy(4_slot, 400)}},
                .seen = {{3_slot, *table().find(3_slot)}},
                .batches = batches};
    }
    Outcome write(const ExportOrder& order) {
        pedal.clearJournal();
        said.clear();
        return run([&] { return runExport(*work, order, events()); });
    }
    static std::vector<std::string> texts(const Outcome& outcome) {
        std::vector<std::string> all;
        std::ranges::transform(outcome.slots, std::back_inserter(all), text);
        return all;
    }
    bool untouched() const { return count("E2 1 0") + count("E2 2 1") + count("E2 3 0") == 0; }
    static simulator::StoredLoop recorded(std::uint32_t frames) { return {noise(frames, 9), 100, 1}; }
};

TEST_F(ExportTest, OneBatchIsAscendingAndTellsThePedalWhatItsOwnTableSays) {
    auto all = order();
    all.exports.at(2_slot).occupied = true;  // as a row had it
    const auto outcome = write(all);
    EXPECT_TRUE(outcome.whole());
    EXPECT_THAT(actions(),
                ElementsAre("E2 1 0", "E3 1200 0", "out 1024", "out 176", "E2 2 1", "E3 1800 0", "out 1024",
                            "out 776", "E2 3 0", "E3 2400 0", "out 1024", "out 1024", "out 352"));
    EXPECT_THAT(said, ElementsAre("2 sent", "3 sent", "4 sent"));
    EXPECT_THAT(texts(outcome), ElementsAre("2 written", "3 written", "4 written"));
}

TEST_F(ExportTest, NothingIsWrittenWhereTheUserWasNotAsked) {
    const auto all = order();
    const auto memory = pedal.memory();
    const auto ends = [&](const std::string& why, const std::string& words) {
        const auto outcome = write(all);
        EXPECT_EQ(end(outcome), why);
        EXPECT_EQ(outcome.end->where + outcome.end->words, words);
        EXPECT_TRUE(untouched() && !outcome.begun && said.empty());
        for (std::uint8_t address = 0; address < loopSlots; ++address) {
            pedal.setLoop(address, memory.at(address));
        }
    };
    pedal.setLoop(3, recorded(50));
    ends("changed", "Loop 4recorded");
    pedal.setLoop(2, recorded(999));
    ends("changed", "Loop 3changed");
    pedal.setLoop(2, std::nullopt);
    ends("changed", "Loop 3erased");
    std::uint32_t frames = 0;  // of loop 1
    port.tamper = [&frames](std::uint8_t request, std::span<std::uint8_t> reply) {
        if (request == wire::firstLoops.code) {
            storeU32(reply, 0, frames);
        }
    };
    frames = capacityFrames + 1;
    ends("too-large", "Loop 1");
    frames = std::uint32_t{capacityFrames} - 512 - 44100 - 171 - 900;  // exactly full in the end
    ends("no-room", "");
    port.tamper = {};
    work->guardNext([] { return false; });
    ends("changed", "played");
}

TEST_F(ExportTest, APedalInItsLoaderIsSentNothing) {
    pedal.unplug();
    pedal.setStage('b');
    pedal.plugIn();
    executor.settle();
    hold({});
    const auto outcome = write({.exports = {{2_slot, copy(2_slot, 200)}}, .seen = {}});
    EXPECT_EQ(end(outcome), "in-loader");
    EXPECT_FALSE(outcome.begun) << "so it is still staged";
    EXPECT_EQ(run([this] { return work->eraseLoops({3_slot}); }).error().kind, Trouble::Kind::inLoader);
    EXPECT_THAT(actions(), IsEmpty());
}

TEST_F(ExportTest, BeforeEachLoopTheTableIsReadAgain) {
    auto all = order(Batches::each);
    pedal.setMemoryListener([&](std::uint8_t address, const simulator::StoredLoop*) {
        if (address == 1) {
            pedal.setLoop(3, recorded(9));
        }
    });
    auto outcome = write(all);
    EXPECT_EQ(end(outcome), "changed");
    EXPECT_TRUE(outcome.begun);
    EXPECT_THAT(said, ElementsAre("3 written", "2 written")) << "what makes room goes first";
    pedal.setMemoryListener({});

    all = {.exports = {{4_slot, copy(4_slot, 5)}},
           .seen = table(),
           .untouched = {1_slot, 2_slot},
           .batches = Batches::each};
    pedal.setLoop(0, std::nullopt);
    EXPECT_EQ(write(all).end->where, "Loop 1");
    EXPECT_EQ(count("E2 3 1"), 0);
}

TEST_F(ExportTest, ThePedalHasTheLastWordOnWhatItHolds) {
    auto one = order(Batches::each);
    one.exports = {{2_slot, copy(2_slot, 200)}};
    auto stored = recorded(200);
    pedal.setMemoryListener([&](std::uint8_t address, const simulator::StoredLoop* loop) {
        if (loop != nullptr) {
            pedal.setLoop(address, stored);
        }
    });
    const auto result = [&] {
        pedal.setLoop(1, std::nullopt);
        const auto outcome = write(one);
        EXPECT_EQ(end(outcome), "");
        return said.at(0);
    };
    EXPECT_EQ(result(), "2 written");
    one.verify = true;
    EXPECT_EQ(result(), "2 sent differs");
    stored.audio = noise(200, 2);
    EXPECT_EQ(result(), "2 compared");
    one.digests[2_slot] = std::string(64, '0');
    EXPECT_EQ(result(), "2 failed damaged") << "known better than by the working copy";
    one.digests.clear();
    plan("refuse@E1");
    EXPECT_EQ(result(), "2 sent refused");
    stored = recorded(199);
    one.verify = false;
    EXPECT_EQ(result(), "2 sent short-loop");
    plan("refuse@E3");
    EXPECT_EQ(result(), "2 failed refused");

    stored = recorded(300);  // right for 3 only
    pedal.setLoop(1, std::nullopt);
    EXPECT_THAT(texts(write(order())), ElementsAre("2 sent short-loop", "3 written", "4 sent short-loop"));
    pedal.setMemoryListener({});
}

TEST_F(ExportTest, ACancelledBatchNamesTheSlotThatMayBeEmpty) {
    pedal.setMemoryListener([&](std::uint8_t address, const simulator::StoredLoop* loop) {
        if (address == 2 && loop == nullptr) {
            cancel();
        }
    });
    const auto outcome = write(order());
    EXPECT_EQ(end(outcome), "cancelled");
    EXPECT_EQ(outcome.doubt.value().slot, 3_slot);
    pedal.setMemoryListener({});
}

}  // namespace
}  // namespace kzq::test
