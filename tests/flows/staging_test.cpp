#include <QUrl>

#include "flow_fixture.h"
#include "ui/x_button.h"

namespace kzq::test {

namespace {

using testing::IsEmpty;

constexpr std::uint64_t onPedal = 3001;

TEST_F(FlowTest, AFileIsStagedWithItsNameItsSizeAndTheWarning) {
    launchConnected();
    conversionTime = 1s;
    drop(3, audioFile("my song.v2.wav", 500));
    pass(999ms);
    EXPECT_THAT(delegate->selectedExportSlots(), IsEmpty());
    pass(1ms);
    const auto info = delegate->selectedExportSlots().at(3_slot);
    EXPECT_EQ(info.bytes, 3000U);
    EXPECT_TRUE(info.occupied);
    EXPECT_EQ(info.source.parent_path(), base / "copies");
    EXPECT_EQ(exportRow(3).name(), "my song.v2");
    EXPECT_EQ(exportRow(3).length(), Frames{500});
    EXPECT_EQ(importRow(3).length(), Frames{2000});
    EXPECT_EQ(importRow(3).view()->toolTip(), "Tempo 100");
    EXPECT_EQ(exportRow(3).view()->toolTip(), "");
    EXPECT_TRUE(window->exportButton()->isEnabled());
    EXPECT_FALSE(window->warning()->isHidden());
    EXPECT_EQ(delegate->existingAndTeedUpExportSamples(), onPedal - 2000 + 500);
    conversionTime = 0s;
    stage(3, 100);  // counts instead of the first
    EXPECT_EQ(delegate->existingAndTeedUpExportSamples(), onPedal - 2000 + 100);
    stage(2, 50);
    exportRow(3).x()->click();
    EXPECT_EQ(exportRow(3).length(), Frames{2000});
    EXPECT_EQ(workingCopies(), 2);  // the staged one is removed, the replaced one is not
    EXPECT_FALSE(std::filesystem::exists(base / "copies" / "2.wav"));
    EXPECT_TRUE(window->exportButton()->isEnabled());
    EXPECT_TRUE(window->warning()->isHidden());
    EXPECT_EQ(delegate->existingAndTeedUpExportSamples(), onPedal + 50);
    exportRow(2).x()->click();
    EXPECT_FALSE(window->exportButton()->isEnabled());
}

TEST_F(FlowTest, TheLastDropOnARowWinsHoweverLongItsConversionTook) {
    launchConnected();
    conversionTime = 10s;
    drop(2, audioFile("slow.wav", 10));
    executor.settle();
    conversionTime = 1s;
    drop(2, audioFile("quick.wav", 20));
    pass(20s);
    EXPECT_EQ(exportRow(2).name(), "quick");
    EXPECT_EQ(delegate->selectedExportSlots().at(2_slot).bytes, 120U);
    EXPECT_EQ(workingCopies(), 1);
}

}  // namespace

}  // namespace kzq::test
