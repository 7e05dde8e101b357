#include <gtest/gtest.h>

#include <QTest>

#include "ui/scale.h"
#include "updates/windows/firmware_updater_progress.h"
#include "updates/windows/lamp_bar.h"
#include "virtual_executor.h"

using namespace kzq;
using namespace kzq::test;
using namespace std::chrono_literals;

namespace {

struct FirmwareProgressTest : testing::Test {
    double bar() const { return progress->slider().doubleValue(); }
    bool shown() const { return progress->window().isVisible(); }

    VirtualExecutor executor;
    std::unique_ptr<FirmwareUpdaterProgress> progress = FirmwareUpdaterProgress::progress(executor);
};

}  // namespace

TEST_F(FirmwareProgressTest, TheBarIsFullAfter13SecondsAndTheWindowClosesASecondLater) {
    EXPECT_FALSE(progress->animate());
    EXPECT_FALSE(shown());
    progress->slider().setDoubleValue(0.7);
    progress->begin();
    EXPECT_TRUE(progress->animate());
    EXPECT_TRUE(shown());
    EXPECT_EQ(bar(), 0);

    executor.advance(6500ms);
    EXPECT_NEAR(bar(), 0.5, 0.0005);
    QTest::keyClick(&progress->window(), Qt::Key_Escape);
    EXPECT_TRUE(shown()) << "a flash can't be cancelled";
    executor.advance(6499ms);
    EXPECT_LT(bar(), 1);
    executor.advance(1ms);
    EXPECT_EQ(bar(), 1);
    executor.advance(999ms);
    EXPECT_TRUE(shown());
    executor.advance(1ms);
    EXPECT_FALSE(shown());
    EXPECT_EQ(executor.mainThreadWaits(), 0U);
}

TEST_F(FirmwareProgressTest, AnEarlierEndFillsTheBar) {
    progress->begin();
    executor.advance(3s);
    executor.background(Priority::standard, progress->ender());
    executor.advance(5ms);
    EXPECT_EQ(bar(), 1);
    executor.advance(1s);
    EXPECT_FALSE(shown());
}

TEST_F(FirmwareProgressTest, TheWindowIsHigherOnlyWhileItsStepNeedsMoreLines) {
    const auto heightWith = [this](int lines) {
        const QStringList all(lines, "Sending image");
        progress->setStep(3, 4, all.join(QChar::LineSeparator), {});
        return progress->window().height();
    };
    progress->begin();
    for (const double size : {1.0, 1.13, 1.22, 0.92}) {
        Scale::ofProgram().setSize(size);
        EXPECT_EQ(heightWith(2), onScreen(128)) << size;
        EXPECT_EQ(heightWith(4), onScreen(160)) << size;
        EXPECT_EQ(heightWith(1), onScreen(128)) << size;
    }
    Scale::ofProgram().setSize(1);
}
