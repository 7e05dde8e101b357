#include "ui/status/status_line.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QMenuBar>
#include <QTest>

#include "ui/status/outcome_row.h"
#include "virtual_executor.h"

namespace kzq {
namespace {

class StatusLineTest : public testing::Test {
  protected:
    StatusLineTest() {
        window.resize(768, 536);
        bar.setNativeMenuBar(false);
        bar.setFixedSize(768, 32);
        bar.addMenu("File");
        line.setAnnouncements(announcements);
        window.show();
        QApplication::setActiveWindow(&window);
    }

    void tell(const std::string& what, const std::string& why = {}) {
        announcements->tell({.what = what,
                             .why = why,
                             .detail = "Loop 3 is still on the pedal.",
                             .failure = true,
                             .actionLabel = "Try again",
                             .action = [this] {
                                 ++tries;
                                 return true;
                             }});
    }
    static void press(QWidget& widget, QPoint at = {4, 4}) {
        QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
        QCoreApplication::processEvents();
    }

    test::VirtualExecutor executor;
    std::shared_ptr<Announcements> announcements = std::make_shared<Announcements>(
        executor, [] { return std::chrono::system_clock::time_point(std::chrono::hours(12)); });
    QWidget window;
    QMenuBar bar{&window};
    StatusLine line{&bar};
    int tries = 0;
};

TEST_F(StatusLineTest, TheListOpensAndClosesLikeAMenu) {
    tell("2 of 10 loops saved", "no space left on the disk");
    auto& list = line.list();
    press(line.sentence());
    ASSERT_TRUE(list.isVisible());
    press(line.sentence());
    EXPECT_FALSE(list.isVisible());
    EXPECT_EQ(line.sentence().sentence(), QString()) << "the failure has been seen";

    line.sentence().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&line.sentence(), Qt::Key_Return);
    ASSERT_TRUE(list.rows().front()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(QGuiApplication::clipboard()->text().section(' ', 1),
              "2 of 10 loops saved. No space left on the disk. Loop 3 is still on the pedal.");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(list.isVisible());
    EXPECT_TRUE(line.sentence().hasFocus());

    line.openList(Qt::ShortcutFocusReason);
    press(window, {20, 400});
    EXPECT_FALSE(list.isVisible());
}

TEST_F(StatusLineTest, AnOutcomeThatComesWhileTheListIsOpenIsInItAndItsActionWorksThere) {
    line.openList(Qt::ShortcutFocusReason);
    tell("first");
    tell("second");
    ASSERT_EQ(line.list().rows().size(), 2U);
    for (const auto& [key, row] :
         {std::pair(Qt::Key_Down, 0U), {Qt::Key_Down, 1U}, {Qt::Key_Down, 1U}, {Qt::Key_Up, 0U}}) {
        QTest::keyClick(&line.list(), key);
        EXPECT_TRUE(line.list().rows()[row]->hasFocus());
    }
    tell("third");
    EXPECT_TRUE(line.list().rows()[1]->hasFocus()) << "the focus stays with its outcome";
    press(*line.list().rows().back()->remedy());
    EXPECT_EQ(tries, 1);
}

}  // namespace
}  // namespace kzq
