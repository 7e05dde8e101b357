#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QShortcutEvent>
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

TEST_F(MenuFlow, OpensWithoutAHighlightInPlaceOfItsButton) {
    EXPECT_TRUE(delegate->menuOpen());
    EXPECT_TRUE(window->menuButton()->isHidden());
    EXPECT_EQ(delegate->menu()->firmware().title(), "Firmware Update...");
    delegate->menu()->software().setHovered(true);
    delegate->closeMenu();
    EXPECT_FALSE(delegate->menuOpen());
    EXPECT_FALSE(window->menuButton()->isHidden());
    for (const auto held :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers(Qt::ShiftModifier),
          Qt::ControlModifier | Qt::ShiftModifier}) {
        modifiers = held;
        delegate->openMenu();
        EXPECT_EQ(delegate->menu()->firmware().title() == "Select Firmware...",
                  held == (Qt::ControlModifier | Qt::ShiftModifier));
    }
    EXPECT_EQ(highlighted(), -1);
}

TEST_F(MenuFlow, KeysMoveTheHighlightWithoutWrappingAndChoose) {
    key(Qt::Key_Return);
    EXPECT_TRUE(delegate->menuOpen());
    EXPECT_THAT(dialogs.shown, IsEmpty());
    key(Qt::Key_Up);
    EXPECT_EQ(highlighted(), 3);
    key(Qt::Key_Down);
    EXPECT_EQ(highlighted(), 3);
    for (const int row : {2, 1, 0, 0}) {
        key(row == 2 ? Qt::Key_Left : Qt::Key_Up);
        EXPECT_EQ(highlighted(), row);
    }
    key(Qt::Key_Right);
    EXPECT_EQ(highlighted(), 1);
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
    delegate->menu()->about().setHovered(true);
    key(Qt::Key_Return);  // reaches the window as ever
    EXPECT_FALSE(delegate->about()->isVisible());
    window->menuButton()->click();
    key(Qt::Key_Down);
    key(Qt::Key_Enter);
    EXPECT_TRUE(delegate->about()->isVisible());
    EXPECT_FALSE(delegate->menuOpen());
    auto& panel = delegate->about()->window();
    const auto centre = panel.pos();
    panel.move(1, 2);
    delegate->openAbout();  // it is left where it is
    EXPECT_EQ(panel.pos(), QPoint(1, 2));
    panel.hide();
    delegate->openAbout();
    EXPECT_EQ(panel.pos(), centre);
}

TEST_F(MenuFlow, AClickElsewhereClosesItAndStillCounts) {
    const auto click = [this](const QWidget& on, QPoint at) {
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, on.mapTo(window.get(), at));
    };
    const auto& view = *delegate->menu()->view();
    click(view, {view.width() / 2, view.height() - 6});  // in the body, under the entries
    EXPECT_TRUE(delegate->menuOpen());
    delegate->openMenu();
    click(*importRow(1).button(), {5, 5});
    EXPECT_FALSE(delegate->menuOpen());
    EXPECT_TRUE(importRow(1).selected());
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
    EXPECT_TRUE(closes([this] { window->setWindowState(Qt::WindowNoState); }));
    EXPECT_TRUE(closes([] {
        QWidget other;
        other.show();
        other.resize(other.width() + 5, other.height());
    }));
    EXPECT_TRUE(closes([] {
        QWidget dialog(nullptr, Qt::Dialog);
        dialog.setWindowModality(Qt::ApplicationModal);
        dialog.show();
    }));
    EXPECT_TRUE(closes([this] { window->menuBar()->actions().first()->menu()->show(); }));
    window->menuBar()->actions().first()->menu()->hide();
    EXPECT_TRUE(closes([this] {
        QEvent keyboardGoes(QEvent::WindowDeactivate);
        QCoreApplication::sendEvent(window.get(), &keyboardGoes);
    }));
    EXPECT_TRUE(closes([this] {
        const auto actions = window->menuBar()->findChildren<QAction*>();
        const auto act = std::ranges::find(actions, QKeySequence("Ctrl+A"), &QAction::shortcut);
        QShortcutEvent shortcut(QKeySequence("Ctrl+A"), 0);
        QCoreApplication::sendEvent(*act, &shortcut);
    }));
    EXPECT_TRUE(closes([this] { window->importTabButton()->click(); }));
    EXPECT_TRUE(closes([this] { window->exportTabButton()->click(); }));
    EXPECT_TRUE(closes([this] { exportRow(2).button()->click(); }));
    EXPECT_TRUE(closes([this] { delegate->openProgress(10, 0); }));
    EXPECT_FALSE(closes([] {
        QWidget tip(nullptr, Qt::ToolTip);
        tip.show();
        tip.move(1, 1);
    }));
}

TEST_F(MenuFlow, TheProgressPanelTellsTheDirectionAndTheCount) {
    select({1});
    delegate->openProgress(10, 0);
    EXPECT_EQ(delegate->progress()->subtitle(), "Importing 1 loop from the 7306...");
    delegate->progress()->setPercent(0.5);
    stage(2, 10);
    delegate->openProgress(1'000'000, 1);
    EXPECT_EQ(delegate->progress()->subtitle(), "Exporting 1 loop to the 7306...");
    EXPECT_EQ(delegate->progress()->title(), "7306 Export");
    EXPECT_EQ(delegate->progress()->percent(), 0);
    EXPECT_EQ(delegate->progress()->window().frameGeometry().topLeft(), window->frameGeometry().topLeft());
}

}  // namespace

}  // namespace kzq::test
