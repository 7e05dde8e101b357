#include "ui/panels/progress.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QTest>
#include <QWindow>
#include <limits>

namespace kzq {
namespace {

class ProgressTest : public testing::Test {
  protected:
    template <class Part>
    Part& part(const char* name) {
        return *panel->window().findChild<Part*>(name);
    }

    int cancels = 0;
    std::unique_ptr<Progress> panel = Progress::progress([this] {
        ++cancels;
        EXPECT_TRUE(panel->isVisible()) << "first the transfer";
    });
};

TEST_F(ProgressTest, FooterBarAndValueFollowTheFraction) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr auto most = std::numeric_limits<std::uint64_t>::max();
    const struct {
        std::uint64_t total;
        double fraction;
        const char* footer;
        int width;
        double percent;
        int value;
    } rows[] = {
        {12'000'000, 0.25, "3MB of 12MB – 25%", 55, 0.25, 25},
        {1'000'000, 0.99, "990KB of 1MB – 99%", 218, 0.99, 99},
        {999'999, 1, "1000KB of 1000KB – 100%", 220, 1, 100},
        {10'000'000, 1.2, "12MB of 10MB – 120%", 264, 1, 100},
        {0, nan, "0B of 0B – 0%", 0, 0, 0},
        {most, 1e300, nullptr, 16777215, 1, 100},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.total << " × " << row.fraction);
        panel->setTotalBytes(row.total);
        panel->setPercent(row.fraction);
        if (row.footer != nullptr) {
            EXPECT_EQ(panel->footer().toStdString(), row.footer);
        }
        EXPECT_EQ(part<QWidget>("bar").geometry(), QRect(90, 68, row.width, 16));
        EXPECT_EQ(panel->percent(), row.percent);
        auto* accessible = QAccessible::queryAccessibleInterface(&part<QWidget>("total"));
        ASSERT_EQ(accessible->role(), QAccessible::ProgressBar);
        EXPECT_EQ(accessible->valueInterface()->currentValue().toInt(), row.value);
    }
}

TEST_F(ProgressTest, EveryRoadOutButTheOwnersCancelsOnce) {
    const std::function<void()> roads[] = {
        [this] { QTest::keyClick(&panel->window(), Qt::Key_Escape); },
        [this] { QTest::keyClick(&part<QWidget>("Cancel"), Qt::Key_Space); },
        [this] {
            QTest::mouseMove(&part<QWidget>("Cancel"));
            QTest::mouseClick(&part<QWidget>("Cancel"), Qt::LeftButton);
        },
        [this] { panel->window().windowHandle()->close(); },
        [this] { panel->cancel(); },
    };
    for (const auto& road : roads) {
        cancels = 0;
        panel->showWindow();
        QTest::keyClick(panel->window().focusWidget(), Qt::Key_Space);  // Cancel has no focus by itself
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&panel->window(), &held);  // it was pressed for something else
        ASSERT_TRUE(panel->isVisible());
        part<QWidget>("Cancel").setFocus();
        road();
        EXPECT_EQ(cancels, 1) << &road - roads;
        EXPECT_FALSE(panel->isVisible()) << &road - roads;
    }
}

}  // namespace
}  // namespace kzq
