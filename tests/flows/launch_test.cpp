#include <QAction>
#include <QMenuBar>
#include <fstream>

#include "flow_fixture.h"
#include "slots/slot_field.h"
#include "slots/slot_field_editor.h"
#include "updates/windows/software_update.h"

namespace kzq::test {

namespace {

TEST_F(FlowTest, LaunchShowsTheWindowAndThePedalThatIsThere) {
    pedal.plugIn();
    launch();
    EXPECT_FALSE(delegate->menuOpen());
    EXPECT_TRUE(importRow(1).occupied());  // a pedal that was there already
    EXPECT_EQ(delegate->windowWillReturnFieldEditor(window.get(), window->importButton()), nullptr);
    EXPECT_NE(delegate->windowWillReturnFieldEditor(window.get(), importRow(1).field()), nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_FALSE(delegate->about()->isVisible());
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

}  // namespace

}  // namespace kzq::test
