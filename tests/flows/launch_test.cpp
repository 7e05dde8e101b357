#include <QAction>
#include <QMenuBar>
#include <QTest>
#include <fstream>

#include "flow_fixture.h"

namespace kzq::test {

namespace {

TEST_F(FlowTest, QuittingRemovesTheWorkingCopiesThatAreStagedAndNothingElse) {
    launchConnected();
    delegate->applicationWillTerminate();
    stage(1, 10);
    stage(7, 20);
    std::ofstream(base / "copies" / "other.wav") << "somebody else's";
    for (auto* const action : window->menuBar()->findChildren<QAction*>()) {
        if (action->shortcut() == QKeySequence("Ctrl+Q")) {
            action->trigger();
        }
    }
    EXPECT_TRUE(quitAsked);
    delegate->applicationWillTerminate();
    EXPECT_EQ(workingCopies(), 1);
    EXPECT_TRUE(std::filesystem::exists(base / "files" / "song 7.wav"));
}

TEST_F(FlowTest, TheMenuIsOperatedByKeysAndClosedByAClickBesideIt) {
    launchConnected();
    const auto key = [this](Qt::Key pressed) { QTest::keyClick(window->windowHandle(), pressed); };
    const auto click = [this](QPoint point) {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    };
    const std::string website = "https://www.maker.example";
    dialogs.take();
    delegate->openMenu();
    key(Qt::Key_Return);  // nothing is chosen yet
    key(Qt::Key_Up);
    key(Qt::Key_Enter);
    key(Qt::Key_Down);  // is the last
    key(Qt::Key_Space);
    EXPECT_THAT(dialogs.take(), testing::ElementsAre(website, website));
    for (int up = 0; up < 4; ++up) {  // to the first, and no further
        key(Qt::Key_Left);
    }
    EXPECT_TRUE(delegate->menu()->about().hovered());
    EXPECT_FALSE(delegate->menu()->website().hovered());
    key(Qt::Key_Return);
    EXPECT_TRUE(delegate->about()->isVisible());
    EXPECT_FALSE(delegate->menuOpen());
    delegate->about()->close();

    delegate->openMenu();
    key(Qt::Key_Right);
    EXPECT_TRUE(delegate->menu()->about().hovered());
    key(Qt::Key_Escape);
    EXPECT_FALSE(delegate->menuOpen());
    delegate->openMenu();
    EXPECT_FALSE(delegate->menu()->about().hovered());
    click(delegate->menu()->view()->mapTo(window.get(), QPoint(4, 48)));
    EXPECT_TRUE(delegate->menuOpen());
    click({1, window->height() - 2});
    EXPECT_FALSE(delegate->menuOpen());
}

}  // namespace

}  // namespace kzq::test
