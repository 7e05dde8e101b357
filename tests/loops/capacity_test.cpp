#include "loops/capacity.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kzq {
namespace {

TEST(Capacity, AnExactlyFullPedalIsRefused) {
    EXPECT_TRUE(fitsCapacity(63'503'999));
    EXPECT_FALSE(fitsCapacity(63'504'000));
}

TEST(Capacity, TheMeterTurnsOrangeAndRedJustBeforeTheFullMinute) {
    struct Case {
        std::uint64_t used;
        std::string picture;
        std::string caption;
    };
    const std::vector<Case> cases = {
        {0, "Meter_bar_green", "Space remaining: 24 min, 0 sec"},
        {1, "Meter_bar_green", "Space remaining: 23 min, 59 sec"},
        {52'875'900, "Meter_bar_green", "Space remaining: 4 min, 1 sec"},
        {52'875'901, "Meter_bar_orange", "Space remaining: 4 min, 0 sec"},
        {60'813'900, "Meter_bar_orange", "Space remaining: 1 min, 1 sec"},
        {60'813'901, "Meter_bar_red", "Space remaining: 1 min, 0 sec"},
        {63'503'999, "Meter_bar_red", "Space remaining: 0 min, 0 sec"},
        {99'999'999'999, "Meter_bar_red", "Space remaining: 0 min, 0 sec"},
    };
    for (const auto& [used, picture, caption] : cases) {
        EXPECT_EQ(meterPicture(used), picture) << used;
        EXPECT_EQ(meterCaption(used), caption) << used;
    }
    EXPECT_DOUBLE_EQ(meterWidth(31'752'000), 120.0);
    EXPECT_DOUBLE_EQ(meterWidth(63'504'001), 240.0);
}

TEST(ExportInfo, NeedsASlotASourceAndBytes) {
    EXPECT_EQ(exportInfoForLoop(20, true, "a.wav", 6), (ExportInfo{"a.wav", 20, true, 6}));
    EXPECT_FALSE(exportInfoForLoop(0, false, "a.wav", 6));
    EXPECT_FALSE(exportInfoForLoop(21, false, "a.wav", 6));
    EXPECT_FALSE(exportInfoForLoop(1, false, "", 6));
    EXPECT_FALSE(exportInfoForLoop(1, false, "a.wav", 0));
}

}  // namespace
}  // namespace kzq
