#include "flow_fixture.h"
#include "slots/slot_field.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto empty = "Space remaining: 24 min, 0 sec";
constexpr auto nearlyEmpty = "Space remaining: 23 min, 59 sec";

TEST_F(FlowTest, ConnectionEnablesTheControlsAtOnceAndFillsTheRowsWhenTheTableComes) {
    launch();
    stage(1, 100);  // laid ready without a pedal
    pedal.plugIn();
    ASSERT_TRUE(executor.advanceUntil([this] { return !window->saysNoPedal(); }, 1s));
    EXPECT_EQ(caption(), empty);
    EXPECT_TRUE(window->selectAllButton()->isEnabled() && window->deselectAllButton()->isEnabled());
    EXPECT_FALSE(importRow(1).occupied());
    EXPECT_THAT(delegate->selectedExportSlots(), IsEmpty());
    executor.settle();
    for (auto* const row : {&importRow(3), &exportRow(3)}) {
        EXPECT_TRUE(row->occupied());
        EXPECT_EQ(row->samples(), 2000U);
        EXPECT_EQ(row->alignedBytes(), 12'032U);
    }
    EXPECT_FALSE(importRow(2).occupied() || exportRow(2).occupied());
    EXPECT_EQ(caption(), nearlyEmpty);
    EXPECT_FALSE(window->importButton()->isEnabled() || window->eraseButton()->isEnabled());
    // What connecting leaves alone.
    EXPECT_TRUE(window->exportButton()->isEnabled());
    EXPECT_TRUE(exportRow(1).exporting().has_value());
    EXPECT_TRUE(window->warning()->isHidden());
    EXPECT_EQ(workingCopies(), 1);
}

TEST_F(FlowTest, AChangeOnThePedalKeepsTheSelectionOfLoopsThatAreStillThere) {
    launchConnected();
    select({1, 3});
    stage(3, 10);
    ASSERT_FALSE(window->warning()->isHidden());
    const auto padded = exportRow(1).alignedBytes();
    pedal.setLoop(0, loopOf(4000, 1));
    pedal.setLoop(2, std::nullopt);
    pass(6s);  // the next poll
    EXPECT_THAT(delegate->selectedImportSlots(), ElementsAre(1_slot));
    EXPECT_TRUE(importRow(1).selected());
    EXPECT_FALSE(importRow(3).occupied() || importRow(3).selected() || exportRow(3).occupied());
    EXPECT_TRUE(window->importButton()->isEnabled() && window->eraseButton()->isEnabled());
    EXPECT_TRUE(window->warning()->isHidden());
    EXPECT_FALSE(delegate->selectedExportSlots().at(3_slot).occupied);
    EXPECT_EQ(importRow(1).alignedBytes(), 24'000U);
    EXPECT_EQ(exportRow(1).alignedBytes(), padded);  // only a connection brings it
    pedal.setLoop(2, loopOf(5, 1));
    pedal.setLoop(0, std::nullopt);
    pass(6s);
    EXPECT_TRUE(delegate->selectedExportSlots().at(3_slot).occupied);
    EXPECT_FALSE(window->warning()->isHidden());
    EXPECT_THAT(delegate->selectedImportSlots(), IsEmpty());
    EXPECT_FALSE(window->importButton()->isEnabled() || window->eraseButton()->isEnabled());
    EXPECT_EQ(delegate->existingAndTeedUpExportSamples(), 11U);  // 10 staged instead of the 5, and slot 20
}

TEST_F(FlowTest, DepartureEmptiesEverythingButWhatATransferOwns) {
    launchConnected();
    pass(4s);  // the first poll
    select({1, 3});
    stage(3, 10);
    exportRow(3).setExported(true);
    type(1, "half typed");
    const auto copies = workingCopies();
    window->addShield();
    pedal.unplug();
    executor.settle();
    EXPECT_TRUE(window->saysNoPedal());
    EXPECT_EQ(caption(), empty);
    EXPECT_THAT(delegate->selectedImportSlots(), IsEmpty());
    EXPECT_THAT(delegate->selectedExportSlots(), IsEmpty());
    EXPECT_FALSE(window->importButton()->isEnabled() || window->eraseButton()->isEnabled() ||
                 window->selectAllButton()->isEnabled() || window->deselectAllButton()->isEnabled());
    EXPECT_EQ(importRow(1).field()->currentEditor(), nullptr);
    EXPECT_FALSE(importRow(1).customImportName().has_value());
    EXPECT_FALSE(exportRow(3).exporting().has_value() || exportRow(3).exported());
    for (auto* const row : {&importRow(3), &exportRow(3)}) {
        EXPECT_FALSE(row->occupied());
        EXPECT_EQ(row->samples() + row->bytes() + row->alignedBytes(), 0U);
    }
    EXPECT_EQ(workingCopies(), copies);
    EXPECT_TRUE(shieldUp() && window->exportButton()->isEnabled() && !window->warning()->isHidden());
    window->removeShield();
}

TEST_F(FlowTest, NewsThatADepartureHasOvertakenIsNotShown) {
    launchConnected();
    const auto status = KZQ7306::looper()->status(true);
    pedal.unplug();
    executor.settle();
    delegate->looperInternalStateChanged(status.value());
    EXPECT_FALSE(importRow(1).occupied() || exportRow(1).occupied());
    EXPECT_EQ(caption(), empty);
}

TEST_F(FlowTest, APedalThatIsSilentOnItsArrivalDoesNotKeepTheWindow) {
    launch();
    plan("silence@E9");
    mainThreadWaits = true;
    pedal.plugIn();
    const auto start = executor.elapsed();
    executor.settle();
    EXPECT_LE(executor.elapsed() - start, 5s);
    EXPECT_TRUE(window->saysNoPedal());
    pedal.unplug();
    executor.settle();
    plugIn();
    EXPECT_TRUE(importRow(1).occupied());
}

}  // namespace

}  // namespace kzq::test
