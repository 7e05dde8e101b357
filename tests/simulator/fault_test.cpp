// Planned faults.

#include "wire.h"

namespace kzq::simulator {
namespace {

using Where = Fault::Where;

TEST(FaultPlan, ReadsFaultsFromText) {
    const auto unplug = faultFromText("unplug@in:100");
    ASSERT_TRUE(unplug);
    EXPECT_EQ(unplug->kind, FaultKind::unplug);
    EXPECT_EQ(unplug->where, Where::bulkIn);
    EXPECT_EQ(unplug->count, 100U);
    EXPECT_FALSE(unplug->repeated);

    const auto refuse = faultFromText("refuse@e1+");
    ASSERT_TRUE(refuse);
    EXPECT_EQ(refuse->where, Where::control);
    EXPECT_EQ(refuse->code, 0xE1);
    EXPECT_EQ(refuse->count, 1U);
    EXPECT_TRUE(refuse->repeated);

    const auto stall = faultFromText("stall@control:2+");
    ASSERT_TRUE(stall);
    EXPECT_FALSE(stall->code);
    EXPECT_EQ(faultFromText("silence@out")->where, Where::bulkOut);
    EXPECT_TRUE(faultFromText("shorten@in") && faultFromText("overrun@in:3") && faultFromText("overrun@out"));

    for (const char* text : {"", "@", "stall", "stall@", "stall@in:", "stall@in:0", "stall@in:-1",
                             "stall@in:1x", "stall@in:4294967296", "stall@E", "stall@E12", "stall@0xE1",
                             "burn@in", "refuse@in", "overrun@E1", "stall@in++", " stall@in"}) {
        EXPECT_FALSE(faultFromText(text)) << text;
    }
}

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
