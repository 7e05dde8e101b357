#include <QAction>
#include <QClipboard>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <algorithm>
#include <array>

#include "app/user_guide.h"
#include "flow_fixture.h"
#include "slots/slot_field.h"
#include "slots/slot_field_editor.h"
#include "ui/alert_button.h"
#include "ui/panels/bring_back.h"
#include "ui/panels/doctor_panel.h"

namespace kzq::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class MenuBarTest : public FlowTest {
  protected:
    ~MenuBarTest() override { QApplication::clipboard()->clear(); }

    void open() {
        launch();
        activate();
        QApplication::clipboard()->clear();
    }
    void openConnected() {
        pedal.plugIn();
        open();
    }
    /// As the keyboard brings it.
    void press(Qt::Key key, Qt::KeyboardModifiers with = {}) {
        activate();
        QTest::keyClick(window->windowHandle(), key, with);
        executor.settle();
    }
    void activate() {  // another one may have been open
        if (!window->isActiveWindow()) {
            window->activateWindow();
            ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        }
    }
    int tab() const { return window->tabs()->currentIndex(); }
    /// The entries of File, Edit and Loop that can do something when their menu opens.
    std::vector<std::string> possible() const {
        std::vector<std::string> able;
        for (auto* const title : window->menuBar()->actions().first(3)) {
            Q_EMIT title->menu()->aboutToShow();
            for (const auto* const entry : title->menu()->actions()) {
                if (entry->isEnabled() && !entry->isSeparator() && !entry->isCheckable()) {
                    able.push_back(entry->text().remove('&').section('\t', 0, 0).toStdString());
                }
            }
            Q_EMIT title->menu()->aboutToHide();
        }
        return able;
    }
    /// What is possible now and was not the last time.
    std::vector<std::string> more() {
        auto able = possible();
        const auto before = std::exchange(possible_, able);
        std::erase_if(able, [&](const auto& entry) { return std::ranges::count(before, entry) != 0; });
        return able;
    }

  private:
    std::vector<std::string> possible_;
};

TEST_F(MenuBarTest, OffersWhatCanBeDoneNow) {
    open();
    EXPECT_THAT(more(), UnorderedElementsAre("Back Up\u2026", "Restore\u2026", "Save Report\u2026", "Quit",
                                             "Bring Back\u2026"));
    plugIn();
    EXPECT_THAT(more(), ElementsAre("Select All"));
    select({3});
    EXPECT_THAT(more(), ElementsAre("Import\u2026", "Select None"));
    importRow(1).button()->setFocus();
    EXPECT_THAT(more(), ElementsAre("Play", "Rename"));
    auto* const copied = new QMimeData;
    copied->setUrls({QUrl("file:///song.wav")});
    QApplication::clipboard()->setMimeData(copied);
    EXPECT_THAT(more(), ElementsAre("Paste Files"));
    press(Qt::Key_2, Qt::ControlModifier);
    exportRow(2).button()->setFocus();
    more();
    EXPECT_THAT(possible(), testing::Not(testing::Contains("Play")));
    stage(2, 10);
    EXPECT_THAT(more(), ElementsAre("Export\u2026", "Play", "Remove"));
    window->addShield();
    EXPECT_THAT(possible(), ElementsAre("Quit"));
}

TEST_F(MenuBarTest, ItsKeysDoWhatTheButtonsDoOnTheirTabAndNothingIfThatIsImpossible) {
    open();
    for (const auto key : {Qt::Key_I, Qt::Key_E, Qt::Key_O}) {
        press(key, Qt::ControlModifier);
        pass(1s);
    }
    EXPECT_THAT(dialogs.take(), IsEmpty());
    plugIn();
    press(Qt::Key_2, Qt::ControlModifier);
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(tab(), 0) << "nothing is selected unseen";
    EXPECT_EQ(delegate->selectedImportSlots().size(), 3U);
    press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_THAT(delegate->selectedImportSlots(), IsEmpty());
    select({1, 3});
    press(Qt::Key_2, Qt::ControlModifier);
    press(Qt::Key_I, Qt::ControlModifier);
    pass(1s);
    EXPECT_EQ(tab(), 0);
    EXPECT_EQ(dialogs.titled, "Choose a folder for 2 loops");
    ASSERT_TRUE(becomesIdle());
    EXPECT_THAT(files(), ElementsAre("Loop 1.wav", "Loop 3.wav"));

    press(Qt::Key_2, Qt::ControlModifier);
    exportRow(3).button()->setFocus();
    dialogs.file = [this] { return Dialogs::Chosen{panelOk, audioFile("song.wav", 10)}; };
    press(Qt::Key_O, Qt::ControlModifier);
    pass(1s);
    EXPECT_EQ(dialogs.titled, "Choose an audio file for Loop 3");
    EXPECT_TRUE(delegate->selectedExportSlots().contains(3_slot));
    press(Qt::Key_Delete);
    EXPECT_THAT(delegate->selectedExportSlots(), IsEmpty());
    stage(3, 20);
    press(Qt::Key_1, Qt::ControlModifier);
    importRow(3).button()->setFocus();
    press(Qt::Key_Delete);
    dialogs.take();
    press(Qt::Key_E, Qt::ControlModifier);
    pass(1s);
    EXPECT_EQ(tab(), 1);
    EXPECT_THAT(dialogs.take(), ElementsAre(testing::StartsWith("Overwriting loop slots")));
    ASSERT_TRUE(becomesIdle());
    EXPECT_EQ(pedal.memory()[2]->audio.size(), 120U);
}

TEST_F(MenuBarTest, TheRowStaysTheSameWhileTheKeyboardIsInTheBar) {
    openConnected();
    importRow(3).button()->setFocus();
    press(Qt::Key_L, Qt::AltModifier);
    press(Qt::Key_Escape);
    press(Qt::Key_Down);
    auto* const menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menuEntry("&Play\tP").isEnabled());
    QTest::keyClick(menu, Qt::Key_R);
    auto* const editor = importRow(3).field()->currentEditor();
    ASSERT_NE(editor, nullptr);
    press(Qt::Key_L, Qt::AltModifier);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(delegate->parts().bringBack.panel(), nullptr) << "it was meant for the bar";
    press(Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), editor) << "it has left the bar";
    EXPECT_EQ(importRow(3).field()->currentEditor(), editor) << "one Escape, one use of it";
}

TEST_F(MenuBarTest, AKeyIsTheNamesThenTheMenusThenTheDragsThenTheRests) {
    openConnected();
    delegate->playClickedForSlot(importRow(3));
    pass(1s);
    port.pace = 10ms;
    delegate->dragBegunForSlot(importRow(1));
    importRow(3).field()->startRenaming();
    using State = std::array<bool, 4>;
    const auto state = [this] {
        return State{importRow(3).field()->currentEditor() != nullptr, delegate->menuOpen(),
                     delegate->parts().carryOut.underWay(), output.plays()};
    };
    const auto escapeEnds = [&](const State& now, const State& then) {
        press(Qt::Key_P);
        press(Qt::Key_Z, Qt::ControlModifier);
        press(Qt::Key_Delete);
        EXPECT_EQ(state(), now);
        EXPECT_EQ(output.starts, 1);
        EXPECT_EQ(delegate->parts().bringBack.panel(), nullptr);
        press(Qt::Key_Escape);
        EXPECT_EQ(state(), then);
    };
    escapeEnds({true, false, true, true}, {false, false, true, true});
    delegate->openMenu();
    escapeEnds({false, true, true, true}, {false, false, true, true});
    importRow(3).button()->setFocus();
    escapeEnds({false, false, true, true}, {false, false, false, true});
    press(Qt::Key_Escape);
    EXPECT_FALSE(output.plays()) << "with the keyboard in a row";
    press(Qt::Key_P);
    EXPECT_EQ(output.starts, 2);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(delegate->parts().bringBack.panel(), nullptr);
}

TEST_F(MenuBarTest, TheDoctorLooksInTheBackgroundAndSaysWhatTheToolSays) {
    int looks = 0;
    examine = [&] {
        ++looks;
        executor.sleep(2s);
        return std::vector<Finding>{
            {Trouble::Kind::noUdev, false, "udev is running.", {}},
            {Trouble::Kind::ruleMissing, true, "You do not have permission.", "sudo this"}};
    };
    open();
    menuEntry("&Doctor\u2026").trigger();
    menuEntry("&Doctor\u2026").trigger();
    auto* const panel = window->findChild<DoctorPanel*>();
    ASSERT_NE(panel, nullptr);
    EXPECT_TRUE(panel->isVisible() && !panel->isModal());
    EXPECT_EQ(panel->headline(), "Checking the pedal and this computer\u2026");
    EXPECT_FALSE(panel->copy().isEnabled());
    pass(3s);
    EXPECT_EQ(looks, 1);
    EXPECT_EQ(panel->accessibleDescription(), "1 problem was found");
    ASSERT_EQ(panel->sentences().size(), 2U);
    EXPECT_EQ(panel->sentences()[0]->accessibleName(), "Problem: You do not have permission.");
    EXPECT_EQ(panel->sentences()[1]->accessibleName(), "OK: udev is running.");
    panel->copy().click();
    EXPECT_EQ(QApplication::clipboard()->text(),
              "ok  udev is running.\n!!  You do not have permission.\n      sudo this\n");
    panel->report().click();
    EXPECT_THAT(dialogs.take(), ElementsAre(testing::StartsWith("Save a report"), "7306 report.txt"));
    menuEntry("&Doctor\u2026").trigger();
    EXPECT_THAT(panel->sentences(), IsEmpty()) << "what was found then may be over";
    pass(3s);
    EXPECT_EQ(looks, 2);
}

TEST_F(MenuBarTest, TheGuideIsTheOneBesideTheProgram) {
    const auto page = base / "opt/share/kzq7306/guide/guide.html";
    std::filesystem::create_directories(base / "opt/bin");
    writeText(base / "opt/bin/kzq7306", "");
    std::filesystem::create_symlink(base / "opt/bin/kzq7306", base / "link");
    EXPECT_EQ(guideOf(base / "link"), "");
    open();
    menuEntry("&User Guide").trigger();
    EXPECT_EQ(line(), "The user guide is not installed");
    std::filesystem::create_directories(page.parent_path());
    writeText(page, "<html>");
    EXPECT_EQ(guideOf(base / "link"), std::filesystem::canonical(page));
}

}  // namespace

}  // namespace kzq::test
