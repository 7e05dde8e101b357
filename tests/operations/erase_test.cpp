#include "operations/erase.h"

#include "operation_fixture.h"

namespace kzq::test {
namespace {

class EraseTest : public OperationTest {
  protected:
    Outcome erase() {
        hold({});
        return run([&] {
            return runErase(*work, {.slots = {1_slot, 3_slot, 20_slot}, .seen = seen, .untouched = {11_slot}},
                            events());
        });
    }
    Loops seen = table();
};

TEST_F(EraseTest, WhatIsStillThereIsNotErased) {
    plan("refuse@ED:2");
    const auto outcome = erase();
    EXPECT_THAT(said, ElementsAre("1 erased", "3 failed not-erased", "20 erased"));
    EXPECT_EQ(outcome.done(), 2U);
    EXPECT_EQ(end(outcome), "");
    pedal.setLoop(0, memory()[0]);
    pedal.setLoop(19, memory()[19]);
    said.clear();
    plan("stall@ED:1");  // a consent, as it reads
    EXPECT_EQ(erase().done(), 2U);
    EXPECT_THAT(said, ElementsAre("1 failed not-erased", "3 erased", "20 erased"));
}

TEST_F(EraseTest, OnlyWhatTheUserWasAskedAboutIsErased) {
    for (const auto address : std::to_array<std::uint8_t>({2, 10})) {
        pedal.setLoop(address, simulator::StoredLoop{noise(7, 7), 1, 1});
        EXPECT_EQ(end(erase()), "changed");
        EXPECT_EQ(count("ED 0 0"), 0);
        pedal.setLoop(address, memory()[address]);
    }
    seen.put(3_slot, {.address = 2, .samples = 1});
    EXPECT_EQ(end(erase()), "changed");
}

TEST_F(EraseTest, APedalThatIsThereKeepsItsWordAndOneThatLeftDoesNot) {
    port.tamper = [this](std::uint8_t request, auto) {
        if (request == wire::eraseLoop.code) {
            cancel();
        }
    };
    auto outcome = erase();
    EXPECT_EQ(end(outcome), "cancelled");
    EXPECT_EQ(outcome.done(), 1U);
    EXPECT_FALSE(outcome.doubt);
    EXPECT_EQ(count("EF 1 0"), 1);
    EXPECT_EQ(count("reset"), 0);
    port.tamper = {};
    pedal.setLoop(0, memory()[0]);
    plan("unplug@ED:2");
    outcome = erase();
    EXPECT_EQ(end(outcome), "unplugged");
    EXPECT_EQ(outcome.done(), 0U);
    EXPECT_TRUE(outcome.doubt);
}

}  // namespace
}  // namespace kzq::test
