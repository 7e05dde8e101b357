#include "operations/erase.h"

#include "operation_fixture.h"

namespace kzq::test {
namespace {

class EraseTest : public OperationTest {
  protected:
    Outcome erase(Pedal::Limits limits = {}) {
        hold(std::move(limits));
        return run([&] {
            return runErase(*work, {.slots = {1_slot, 3_slot, 20_slot}, .seen = seen, .untouched = {11_slot}},
                            events());
        });
    }
    Loops seen = table();
};

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

TEST_F(EraseTest, WhatNobodyWaitedForMayHaveBeenErased) {
    port.tamper = [this](std::uint8_t request, auto) { executor.sleep(request == 0xED ? 1min : 0s); };
    const auto outcome = erase({.silence = 5s, .leaveBehind = true});
    EXPECT_EQ(end(outcome), "silent");
    EXPECT_EQ(outcome.doubt.value().slot, 1_slot);
    executor.advance(5min);
}

}  // namespace
}  // namespace kzq::test
