#include <QAction>
#include <QMenuBar>
#include <QScreen>
#include <fstream>

#include "flow_fixture.h"
#include "slots/slot_field.h"
#include "slots/slot_field_editor.h"
#include "updates/windows/software_update.h"

namespace kzq::test {

namespace {

TEST_F(FlowTest, LaunchBuildsTheRowsAndShowsTheSplashBeforeTheWindow) {
    pedal.plugIn();
    launch();
    for (const auto* const list : {&delegate->importSlots(), &delegate->exportSlots()}) {
        ASSERT_EQ(list->size(), 20U);
        for (std::size_t i = 0; i < 20; ++i) {
            const auto& slot = *list->at(i);
            EXPECT_EQ(slot.number(), i + 1);
            EXPECT_EQ(slot.isExport(), list == &delegate->exportSlots());
            EXPECT_EQ(slot.view()->parentWidget()->objectName(),
                      QString(slot.isExport() ? "export slot %1" : "import slot %1").arg(i + 1));
            EXPECT_TRUE(window->tabs()->widget(slot.isExport() ? 1 : 0)->isAncestorOf(slot.view()));
            EXPECT_EQ(slot.delegate(), delegate.get());
        }
    }
    EXPECT_EQ(delegate->sparkle()->feedURL(), "https://feed/home");
    const auto menu = delegate->menu()->view()->geometry();
    EXPECT_EQ(menu.topRight(), window->menuButton()->geometry().topRight());
    EXPECT_EQ(menu.size(), QSize(224, 208));
    EXPECT_FALSE(delegate->menuOpen());
    EXPECT_TRUE(importRow(1).occupied());  // a pedal that was there already
    EXPECT_EQ(delegate->windowWillReturnFieldEditor(window.get(), window->importButton()), nullptr);
    EXPECT_NE(delegate->windowWillReturnFieldEditor(window.get(), importRow(1).field()), nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(delegate->about()->isVisible());
    const auto screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_LE((window->geometry().center() - screen.center()).manhattanLength(), 8);
}

TEST_F(FlowTest, TheMainWindowComesWhenTheSplashGoes) {
    launch(1499ms);
    EXPECT_TRUE(delegate->about()->isVisible());
    EXPECT_FALSE(window->isVisible());
    pass(1ms);
    EXPECT_FALSE(delegate->about()->isVisible());
    EXPECT_TRUE(window->isVisible());
}

TEST_F(FlowTest, WithoutAPedalNothingCanBeSelectedAndTheRemedyIsShown) {
    launch();
    EXPECT_TRUE(window->saysNoPedal());
    EXPECT_TRUE(window->meter()->isHidden());
    EXPECT_EQ(window->findChild<QLabel*>("emptyRemedy")->text(), "a remedy");
    for (auto* const button : std::initializer_list<QAbstractButton*>{
             window->importButton(), window->eraseButton(), window->exportButton(), window->selectAllButton(),
             window->deselectAllButton()}) {
        EXPECT_FALSE(button->isEnabled()) << button->objectName().toStdString();
    }
    window->importButton()->setEnabled(true);
    delegate->selectAll();
    EXPECT_TRUE(delegate->selectedImportSlots().empty());
    EXPECT_TRUE(window->importButton()->isEnabled());  // the buttons are as they were
    EXPECT_FALSE(window->eraseButton()->isEnabled());
}

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

TEST_F(FlowTest, ARelaunchAfterAnUpdateLeavesTheMarkerForTheNextStart) {
    launch();
    delegate->updaterWillRelaunchApplication(*delegate->sparkle());
    EXPECT_GT(std::filesystem::file_size(base / "home" / ".com.kzq.7306.ignore-bundle-name-change"), 10U);
}

}  // namespace

}  // namespace kzq::test
