#include "loops/capacity.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kzq {
namespace {

Loop recorded(std::uint32_t samples) {
    Loop loop;
    loop.samples = samples;
    return loop;
}

TEST(Capacity, AStagedFileCountsInsteadOfWhatItWillOverwrite) {
    const Loops existing{{1_slot, recorded(100)}, {20_slot, recorded(7)}};
    Exports teedUp{{1_slot, {"a.wav", 1, true, 61}}, {5_slot, {"b.wav", 5, false, 600}}};
    EXPECT_EQ(existingAndTeedUpExportSamples(existing, {}), 107U);
    EXPECT_EQ(existingAndTeedUpExportSamples(existing, teedUp), 10U + 100U + 7U);
    EXPECT_EQ(existingAndTeedUpExportSamplesWithProposedExport(existing, teedUp, 3, 5_slot), 10U + 3U + 7U);
    EXPECT_EQ(existingAndTeedUpExportSamplesWithProposedExport(existing, teedUp, 3, 20_slot),
              10U + 100U + 3U);
    EXPECT_EQ(existingAndTeedUpExportSamplesWithProposedExport(existing, teedUp, 3, 9_slot), 117U + 3U);
    teedUp.at(5_slot).destination = 0;  // bound for nowhere
    EXPECT_EQ(existingAndTeedUpExportSamples(existing, teedUp), 17U);
}

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
