// Planned faults.

#include "wire.h"

namespace kzq::simulator {
namespace {

using Where = Fault::Where;

TEST(FaultPlan, CountsWhatMatches) {
    FaultPlan plan;
    plan.add(*faultFromText("stall@E1:2"));
    plan.add(*faultFromText("unplug@control:3+"));
    EXPECT_FALSE(plan.next(Where::control, 0xE1));
    EXPECT_FALSE(plan.next(Where::bulkIn));
    EXPECT_FALSE(plan.next(Where::control, 0xE2));
    EXPECT_EQ(plan.next(Where::control, 0xE1), FaultKind::stall) << "the fault planned first comes first";
    EXPECT_EQ(plan.next(Where::control, 0xE1), FaultKind::unplug);
    EXPECT_EQ(plan.next(Where::control, 0xE9), FaultKind::unplug);
    plan.clear();
    EXPECT_FALSE(plan.next(Where::control, 0xE9));
}

class Faults : public testing::Test {
  protected:
    void plan(const char* text) { wire.pedal.plan(*faultFromText(text)); }

    Wire wire{{.memory = {StoredLoop{noise(6000)}}}};
};

TEST_F(Faults, SilenceLastsUntilResetOrDeparture) {
    plan("silence@E1");
    EXPECT_EQ(wire.control(0xE1, 0, 1).status, TransferStatus::pending);
    EXPECT_EQ(wire.control(0xE1, 0, 1).status, TransferStatus::pending) << "the transport asks again";
    EXPECT_EQ(wire.write(noise(6)).status, TransferStatus::pending) << "mute on every pipe";
    EXPECT_EQ(wire.pedal.journal().size(), 3U) << "plugged, 0xE1, the write";
    wire.pedal.reset();
    EXPECT_EQ(wire.stage(), 'p');

    plan("silence@control:1+");
    EXPECT_EQ(wire.control(0xE9).status, TransferStatus::pending);
    wire.pedal.clearFaults();
    EXPECT_EQ(wire.control(0xE9).status, TransferStatus::pending) << "no plan, but still mute";
    wire.pedal.unplug();
    wire.pedal.plugIn();
    EXPECT_EQ(wire.stage(), 'p');
    EXPECT_THAT(wire.pedal.violations(), IsEmpty());
}

}  // namespace
}  // namespace kzq::simulator
