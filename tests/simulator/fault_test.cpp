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

}  // namespace
}  // namespace kzq::simulator
