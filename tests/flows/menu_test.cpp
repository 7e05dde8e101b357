#include <QTest>
#include <QWindow>
#include <algorithm>

#include "flow_fixture.h"
#include "ui/panels/about_window.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MenuFlow : public FlowTest {
  protected:
    MenuFlow() {
        launchConnected();
        window->menuButton()->click();
    }
    void key(Qt::Key key) const {
        QTest::keyPress(window->windowHandle(), key);
        QTest::keyRelease(window->windowHandle(), key);
    }
    /// The highlighted entry from the top, or -1.
    int highlighted() const {
        int found = -1;
        for (int i = 0; i < 4; ++i) {
            if (delegate->menu()->items().at(static_cast<std::size_t>(i))->hovered()) {
                EXPECT_EQ(found, -1);
                found = i;
            }
        }
        return found;
    }
};

TEST_F(MenuFlow, KeysMoveTheHighlightWithoutWrappingAndChoose) {
    key(Qt::Key_Return);
    EXPECT_TRUE(delegate->menuOpen());
    EXPECT_THAT(dialogs.shown, IsEmpty());
    key(Qt::Key_Up);
    EXPECT_EQ(highlighted(), 3);
    key(Qt::Key_Down);
    EXPECT_EQ(highlighted(), 3);
    delegate->openMenu();
    key(Qt::Key_Down);
    EXPECT_EQ(highlighted(), 0);
    for (int i = 0; i < 3; ++i) {
        key(Qt::Key_Down);
    }
    key(Qt::Key_Space);
    EXPECT_THAT(dialogs.take(), ElementsAre("https://www.maker.example"));
    EXPECT_TRUE(delegate->menuOpen());  // choosing by key closes nothing by itself
    key(Qt::Key_Escape);
    EXPECT_FALSE(delegate->menuOpen());
    EXPECT_EQ(window->focusWidget(), window->menuButton());  // where it came from
    window->menuButton()->click();
    key(Qt::Key_Down);
    key(Qt::Key_Enter);
    EXPECT_TRUE(delegate->about()->isVisible());
    EXPECT_FALSE(delegate->menuOpen());
}

TEST_F(MenuFlow, WhateverHappensToAWindowClosesIt) {
    const auto closes = [this](const auto& happening) {
        delegate->openMenu();
        happening();
        QCoreApplication::sendPostedEvents();
        return !delegate->menuOpen();
    };
    EXPECT_FALSE(closes([] {}));
    EXPECT_TRUE(closes([this] { window->move(window->x() + 5, window->y()); }));
    EXPECT_TRUE(closes([this] { window->setWindowState(Qt::WindowMinimized); }));
    EXPECT_TRUE(closes([this] {
        QEvent keyboardGoes(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(window.get(), &keyboardGoes);
    }));
    EXPECT_TRUE(closes([this] { window->importTabButton()->click(); }));
    EXPECT_TRUE(closes([this] { exportRow(2).button()->click(); }));
    EXPECT_TRUE(closes([this] { delegate->openProgress(10, 0); }));
    EXPECT_FALSE(closes([] {
        QWidget tip(nullptr, Qt::ToolTip);
        tip.show();
        tip.move(1, 1);
    }));
}

}  // namespace

}  // namespace kzq::test
