#include "ui/panels/backup_panel.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "ui/alert_button.h"
#include "ui/check_box.h"

namespace kzq::test {

namespace {

using Look = BackupSlot::Look;

class BackupPanelTest : public testing::Test {
  protected:
    BackupPanelTest() {
        std::vector<BackupOffer> offers;
        for (int day = 1; day <= 15; ++day) {
            offers.push_back({QString("%1 Nov").arg(day), "13 loops"});
        }
        panel.setOffers(offers[2], offers, 2);
        std::vector<BackupSlot> slots(20);
        slots[10] = {Look::fresh, "1:48", "new", "Slot 11, Loop 11, 1 minute 48 seconds, new"};
        panel.setSlots(slots);
        panel.setCounts({{Look::rest, "11 same"}, {Look::fresh, "1 new"}});
        panel.setReady(true, {}, {});
        QObject::connect(&panel, &BackupPanel::chosen, [this](std::size_t offer) { chosen = offer; });
        QObject::connect(&panel, &BackupPanel::wanted, [this] { wanted = true; });
        panel.show();
    }

    QWidget window;
    BackupPanel panel{BackupPanel::Kind::restore, &window};
    std::size_t chosen = 99;
    bool wanted = false;
};

TEST_F(BackupPanelTest, TheListIsWalkedByKeysBeyondWhatItShows) {
    EXPECT_EQ(panel.tape().accessibleName(), "Backup: 3 Nov, 13 loops");
    QTest::keyClick(&panel.tape(), Qt::Key_Space);
    ASSERT_TRUE(panel.list().isVisible());
    QTest::keyClick(&panel.list(), Qt::Key_End);
    QTest::keyClick(&panel.list(), Qt::Key_Up);
    EXPECT_EQ(panel.list().accessibleName(), "14 Nov, 13 loops");
    QTest::mouseClick(&panel.list(), Qt::LeftButton, {}, {100, 8 + 34 / 2});  // the first that is shown
    EXPECT_EQ(chosen, 4U);
    EXPECT_FALSE(panel.list().isVisible());
    QTest::keyClick(&panel.tape(), Qt::Key_Space);
    QTest::mouseClick(panel.rows().back(), Qt::LeftButton);
    EXPECT_FALSE(panel.list().isVisible()) << "a press outside closes it";
    EXPECT_EQ(chosen, 4U);
    QTest::keyClick(&panel.tape(), Qt::Key_Space);
    panel.close();
    panel.show();
    QTest::mouseClick(&panel.tape(), Qt::LeftButton);
    EXPECT_TRUE(panel.list().isVisible()) << "it swallows no press once its panel was closed";
}

TEST_F(BackupPanelTest, RowsAreReadByArrowsAndReturnRestores) {
    QTest::keyClick(panel.rows()[0], Qt::Key_Right);
    auto* const row = panel.rows()[10];
    EXPECT_TRUE(panel.focusWidget() == row && row->focusPolicy() == Qt::StrongFocus);
    EXPECT_EQ(panel.rows()[0]->focusPolicy(), Qt::ClickFocus) << "one stop of Tab";
    EXPECT_EQ(QAccessible::queryAccessibleInterface(row)->text(QAccessible::Name),
              "Slot 11, Loop 11, 1 minute 48 seconds, new");
    EXPECT_FALSE(panel.erases());
    QTest::keyClick(row, Qt::Key_Return);
    EXPECT_TRUE(wanted);
    EXPECT_FALSE(panel.isVisible());
}

}  // namespace

}  // namespace kzq::test
