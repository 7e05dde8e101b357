#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <fstream>
#include <limits>

#include "dormant/small_helpers.h"
#include "ui/view_width.h"
#include "virtual_executor.h"

using namespace std::chrono_literals;

namespace kzq {
namespace {

TEST(SmallHelpers, MakeFolders) {
    const QTemporaryDir folder;
    const auto deep = std::filesystem::path(folder.path().toStdString()) / "a" / "b";
    EXPECT_FALSE(createDirectoryAtPath(""));
    EXPECT_TRUE(createDirectoryAtPath(deep));
    EXPECT_TRUE(createDirectoryAtPath(deep)) << "is there already";
    const std::ofstream file(deep / "file");
    EXPECT_FALSE(createDirectoryAtPath(deep / "file"));
    EXPECT_FALSE(createDirectoryAtPath(deep / "file" / "c"));
}

TEST(SmallHelpers, TimersRunOnceOrAgainUntilInvalid) {
    test::VirtualExecutor executor;
    int once = 0;
    int again = 0;
    EXPECT_EQ(scheduledTimer(executor, 1, nullptr), nullptr);
    scheduledTimer(executor, 0.5, [&] { ++once; });
    const auto timer = scheduledTimer(
        executor, 2, [&] { ++again; }, true);
    executor.advance(499ms);
    EXPECT_EQ(once, 0);
    executor.advance(6s);
    EXPECT_EQ(once, 1);
    EXPECT_EQ(again, 3);
    timer->invalidate();
    executor.advance(6s);
    EXPECT_EQ(again, 3);
}

TEST(SmallHelpers, WidthKeepsThePlaceAndTakesNoNonsense) {
    QWidget parent;
    QWidget view(&parent);
    view.setGeometry(5, 6, 70, 8);
    setWidth(view, 12.5);
    EXPECT_EQ(view.geometry(), QRect(5, 6, 13, 8));
    EXPECT_EQ(kzq::width(view), 13);
    setWidth(view, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(view.width(), 0);
    setWidth(view, -3);
    EXPECT_EQ(view.geometry(), QRect(5, 6, 0, 8));
    setWidth(view, std::numeric_limits<double>::infinity());
    EXPECT_GT(view.width(), 240);
}

}  // namespace
}  // namespace kzq
