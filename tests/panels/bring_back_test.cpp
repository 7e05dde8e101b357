#include "ui/panels/bring_back.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "ui/alert_button.h"
#include "ui/key_button.h"
#include "ui/panels/bring_back_targets.h"

namespace kzq::test {

namespace {

using Targets = std::map<std::size_t, unsigned>;

class BringBackTest : public testing::Test {
  protected:
    BringBackTest() {
        QObject::connect(&panel, &BringBack::wanted, [this](const Targets& targets) { wanted = targets; });
        panel.setLoops(std::set<unsigned>{1, 2, 6});
        panel.setCopies(
            {{5, "erased today 14:02", 42, true}, {2, "replaced today 13:40", 60}, {5, "erased Tue", 1}},
            "312 MB");
        panel.show();
    }
    BringBackRow& row(std::size_t at) { return *panel.rows().at(at); }

    QWidget window;
    BringBack panel{&window};
    Targets wanted;
};

TEST_F(BringBackTest, SaysWhatWouldHappenAndDoesIt) {
    EXPECT_EQ(panel.summary(), "3 copies on this computer, 312 MB. Above 2 GB the oldest are removed.");
    auto* const spoken = QAccessible::queryAccessibleInterface(&row(0).selector());
    EXPECT_EQ(spoken->text(QAccessible::Name), "Loop 5, erased today 14:02, 42 seconds, to slot 5, empty");
    EXPECT_TRUE(spoken->state().checked);
    EXPECT_EQ(row(1).spoken(),
              "Loop 2, replaced today 13:40, 1 minute 0 seconds, to slot 2, replaces its loop");
    QTest::mouseClick(&row(1), Qt::LeftButton, {}, {200, 14});
    QTest::keyClick(&panel, Qt::Key_Return);
    EXPECT_EQ(wanted, (Targets{{0, 5}, {1, 2}}));
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(BringBackTest, NoTwoGoToOneSlot) {
    row(2).setOn(true);
    EXPECT_EQ(row(2).target(), (BringBackTarget{7, false})) << "the next that is free";
    QTest::mouseClick(&row(2).leader(), Qt::LeftButton);
    ASSERT_TRUE(panel.targets().isVisible());
    QTest::mouseClick(&panel.targets(), Qt::LeftButton, {}, {40, 110});  // 5, which the first goes to
    EXPECT_TRUE(panel.targets().isVisible());
    for (const auto key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Right, Qt::Key_Return}) {  // 6, 4, 14
        QTest::keyClick(&panel.targets(), key);
    }
    EXPECT_FALSE(panel.targets().isVisible());
    EXPECT_EQ(row(2).target(), (BringBackTarget{14, false}));
    EXPECT_EQ(row(0).target().slot, 5U);
    panel.setLoops(std::set<unsigned>{14});
    EXPECT_EQ(row(2).target(), (BringBackTarget{14, true}));
}

TEST_F(BringBackTest, WithAllSlotsTakenTheKeysGoNowhere) {
    std::vector<BringBackCopy> copies(20, {5, "erased today 14:02", 42, true});
    copies.push_back({5, "erased Tue", 1});
    panel.setLoops(std::set<unsigned>{});
    panel.setCopies(copies, "312 MB");
    QTest::mouseClick(&row(20).leader(), Qt::LeftButton);
    QTest::keyClick(&panel.targets(), Qt::Key_Down);
    QTest::keyClick(&panel.targets(), Qt::Key_Return);
    EXPECT_TRUE(panel.targets().isVisible());
    EXPECT_FALSE(row(20).on());
}

TEST_F(BringBackTest, KeysPlayACopyAndEscapeStopsItBeforeItCloses) {
    std::vector<std::size_t> pressed;
    int stops = 0;
    QObject::connect(&panel, &BringBack::ringPressed, [&](std::size_t copy) { pressed.push_back(copy); });
    QObject::connect(&panel, &BringBack::stopPressed, [&] { ++stops; });
    QTest::keyClick(&row(1).leader(), Qt::Key_P);
    row(2).selector().setFocus();
    QTest::keyClick(&row(2).selector(), Qt::Key_Left);
    ASSERT_EQ(panel.focusWidget(), &row(2).ring());
    QTest::keyClick(&row(2).ring(), Qt::Key_Space);
    EXPECT_EQ(pressed, (std::vector<std::size_t>{1, 2}));
    EXPECT_EQ(row(0).ring().accessibleName(), "Play Loop 5, 42 seconds");
    panel.setSound(0, {.on = true, .position = 0.5, .seconds = 21});
    EXPECT_EQ(row(0).ring().accessibleName(), "Stop Loop 5");
    QTest::keyClick(&row(2).ring(), Qt::Key_Escape);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(stops, 1);
    panel.setSound(0, {});
    QTest::keyClick(&panel, Qt::Key_Escape);
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(BringBackTest, NothingGoesWithoutAPedalOrACopy) {
    panel.setLoops(std::nullopt);
    QTest::keyClick(&panel, Qt::Key_Return);
    EXPECT_FALSE(panel.acceptButton().isEnabled());
    EXPECT_TRUE(panel.isVisible() && wanted.empty());
    panel.setLoops(std::set<unsigned>{});
    EXPECT_TRUE(panel.acceptButton().isEnabled());
    panel.setCopies({}, "");
    EXPECT_FALSE(panel.acceptButton().isEnabled());
    panel.setKeeping(true);
    EXPECT_EQ(panel.notice(), "A loop is copied here before you erase or replace it.");
}

}  // namespace

}  // namespace kzq::test
