#include <gtest/gtest.h>

#include <QScreen>
#include <QTest>
#include <limits>

#include "controls.h"
#include "ui/palette.h"
#include "updates/windows/firmware_updater_progress.h"
#include "updates/windows/lamp_bar.h"
#include "virtual_executor.h"

using namespace kzq;
using namespace kzq::test;
using namespace std::chrono_literals;

namespace {

/// Holds tasks for the main thread back until the test releases them.
struct HeldUpExecutor : VirtualExecutor {
    void main(Task task) override { queued.push_back(std::move(task)); }
    std::vector<Task> queued;
};

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
    const auto middle = progress->window().screen()->availableGeometry().center();
    EXPECT_LE((progress->window().geometry().center() - middle).manhattanLength(), 8);  // the frame's edges
    EXPECT_TRUE(progress->window().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(progress->window().windowFlags().testFlag(Qt::WindowCloseButtonHint));

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
    progress->end();
    EXPECT_FALSE(progress->animate());
    executor.settle();
    EXPECT_EQ(bar(), 1) << "ended before the loop began";
    executor.advance(999ms);
    EXPECT_TRUE(shown());
    executor.advance(1ms);
    EXPECT_FALSE(shown());

    progress->begin();
    executor.advance(3s);
    executor.background(Priority::standard, progress->ender());
    executor.advance(5ms);
    EXPECT_EQ(bar(), 1);
    executor.advance(1s);
    EXPECT_FALSE(shown());
}

TEST_F(FirmwareProgressTest, ABeginAfterAFailedFlashStartsAnewAndOwesTheFirstNothing) {
    progress->begin();
    executor.advance(10s);
    progress->begin();
    EXPECT_EQ(bar(), 0);
    executor.advance(5s);
    EXPECT_TRUE(shown());
    EXPECT_NEAR(bar(), 5.0 / 13, 0.0005);
    progress->end();
    executor.advance(500ms);
    progress->begin();
    executor.advance(600ms);
    EXPECT_TRUE(shown()) << "the close of the one before is void";
    EXPECT_NEAR(bar(), 0.6 / 13, 0.0005);
    executor.advance(14s);
    EXPECT_FALSE(shown());
}

TEST_F(FirmwareProgressTest, GoingAwayEndsTheLoop) {
    progress->begin();
    const auto ender = progress->ender();
    executor.advance(1s);
    progress.reset();
    executor.advance(20s);
    ender();
}

TEST(FirmwareProgressOnABusyMainThread, OneUpdateWaitsAndBringsTheNewestValue) {
    HeldUpExecutor executor;
    const auto progress = FirmwareUpdaterProgress::progress(executor);
    progress->begin();
    executor.advance(2s);
    ASSERT_EQ(executor.queued.size(), 1U);
    executor.queued.front()();
    EXPECT_NEAR(progress->slider().doubleValue(), 2.0 / 13, 0.0005);
    executor.advance(5ms);
    ASSERT_EQ(executor.queued.size(), 2U) << "and the next one may come";
    progress->begin();
    executor.queued.back()();
    EXPECT_EQ(progress->slider().doubleValue(), 0) << "which is of no interest to the next flash";
    executor.endJobs();
}

TEST(LampBar, LightsWholeLampsFromTheLeft) {
    LampBar bar;
    bar.resize(bar.sizeHint());
    for (const int lamps : {0, 2, 43}) {
        bar.setDoubleValue(std::numeric_limits<double>::quiet_NaN());
        EXPECT_EQ(bar.doubleValue(), 0);
        bar.setDoubleValue(lamps / 43.0);
        const auto image = bar.grab().toImage();
        int lit = 0;
        for (int x = 0; x < image.width(); ++x) {
            lit += image.pixelColor(x, 12) == creamColor() ? 1 : 0;
        }
        EXPECT_EQ(lit, lamps * 6);
    }
}
