#include "flow_fixture.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto overwriting =
    "Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. Would you like to "
    "continue?";

TEST_F(FlowTest, ExportSendsWhatIsStagedAndThenReadsThePedalAnew) {
    launchConnected();
    stage(12, 1000);
    stage(2, 300);
    port.writePace = 10ms;
    pedal.clearJournal();
    window->exportButton()->click();
    pass(99ms);
    EXPECT_FALSE(shieldUp());
    pass(1ms);
    const auto& progress = *delegate->progress();
    EXPECT_TRUE(shieldUp() && progress.isVisible());
    EXPECT_EQ(progress.title(), "7306 Export");
    EXPECT_EQ(progress.subtitle(), "Exporting 2 loops to the 7306...");
    EXPECT_EQ(progress.totalBytes(), 6000U + 1800U - 2 * 44U);  // the header is taken off a second time
    pass(20ms);                                                 // the first loop, 1800 bytes, is through
    EXPECT_NEAR(progress.percent(), 1800 / 7712.0, 1e-9);
    EXPECT_TRUE(exportRow(2).exported());
    EXPECT_FALSE(exportRow(12).exported());
    EXPECT_EQ(workingCopies(), 2);
    pedal.clearJournal();
    ASSERT_TRUE(executor.advanceUntil([this] { return !shieldUp(); }, 1min));
    EXPECT_FALSE(progress.isVisible() || window->exportButton()->isEnabled());
    EXPECT_THAT(delegate->selectedExportSlots(), IsEmpty());
    EXPECT_FALSE(exportRow(2).exporting().has_value() || exportRow(2).exported());
    EXPECT_EQ(workingCopies(), 0);
    EXPECT_FALSE(exportRow(2).occupied());
    executor.settle();
    EXPECT_TRUE(exportRow(2).occupied() && importRow(12).occupied());
    EXPECT_EQ(importRow(12).samples(), 1000U);
    EXPECT_EQ(delegate->existingAndTeedUpExportSamples(), 4301U);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_TRUE(std::filesystem::exists(base / "files" / "song 2.wav"));
}

TEST_F(FlowTest, OverwritingIsAskedForAndANoLeavesEverythingAsItWas) {
    launchConnected();
    stage(3, 10);
    stage(4, 10);
    dialogs.answer = [this] {
        EXPECT_FALSE(shieldUp());
        return alertThirdButton;
    };
    pedal.clearJournal();
    window->exportButton()->click();
    pass(1s);
    EXPECT_THAT(dialogs.take(), ElementsAre(overwriting));
    EXPECT_FALSE(shieldUp());
    EXPECT_EQ(delegate->selectedExportSlots().size(), 2U);
    EXPECT_EQ(workingCopies(), 2);
    EXPECT_THAT(sent(0xE2), IsEmpty());
    EXPECT_FALSE(window->warning()->isHidden());
    dialogs.answer = [] { return alertFirstButton; };
    window->exportButton()->click();
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(sent(0xE2), ElementsAre(2, 3));
    EXPECT_TRUE(window->warning()->isHidden());
    EXPECT_EQ(pedal.memory()[2]->audio.size(), 60U);
}

TEST_F(FlowTest, ALoopThatFailsCountsAsExportedAndItsWorkingCopyGoesToo) {
    launchConnected();
    stage(2, 7);
    stage(4, 1000);
    port.writePace = 10ms;
    plan("refuse@E2");
    window->exportButton()->click();
    pass(120ms);
    ASSERT_TRUE(shieldUp());
    EXPECT_TRUE(exportRow(2).exported());
    EXPECT_EQ(exportRow(2).name(), "complete");
    ASSERT_TRUE(becomesIdle());
    EXPECT_FALSE(exportRow(2).occupied());
    EXPECT_TRUE(exportRow(4).occupied());
    EXPECT_EQ(workingCopies(), 0);
}

TEST_F(FlowTest, ATotalOfNothingRunsWithoutThePanel) {
    launchConnected();
    stage(2, 6);  // 36 bytes, fewer than a header
    port.writePace = 10ms;
    window->exportButton()->click();
    pass(100ms);
    EXPECT_TRUE(shieldUp());
    EXPECT_FALSE(delegate->progress()->isVisible());
    ASSERT_TRUE(becomesIdle());
    EXPECT_TRUE(exportRow(2).occupied());
}

}  // namespace

}  // namespace kzq::test
