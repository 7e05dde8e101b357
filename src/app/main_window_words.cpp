// What the window shows without having been told anything, and what its parts are called.

#include "app/main_window.h"
#include "ui/fitted_label.h"
#include "ui/qt_words.h"

namespace kzq {

void MainWindow::nameParts() {
    constexpr int usualType = 13;
    constexpr int headlineType = 24;
    constexpr int roomOnPlate = 252;  // beside the picture
    setWindowTitle("7306 Loop Manager");
    setFitted(*ui_.emptyHeadline, toQt(words("Plug in your 7306")), headlineType, roomOnPlate);
    setFitted(
        *ui_.emptyAdvice,
        toQt(words(
            "Connect the pedal to this computer\nby USB and switch it on.\nIts loops will appear here.")),
        usualType, roomOnPlate);
    setFitted(*ui_.emptyNoteHeadline, toQt(words("No pedal connected")), usualType);
    setFitted(*ui_.emptyNoteText, toQt(words("Its free space shows here.")), usualType);
    setFitted(*ui_.warningText, toQt(words("Slots marked like this will\nreplace loops on the pedal.")),
              usualType);
    ui_.importTabButton->setWords({toQt(words("Import")), toQt(words("pedal to computer"))});
    ui_.exportTabButton->setWords({toQt(words("Export")), toQt(words("computer to pedal"))});
    ui_.menuButton->setToolTip(toQt(words("Menu")));

    const auto call = [](QWidget* part, const std::string& name) { part->setAccessibleName(toQt(name)); };
    call(ui_.tabs->widget(0), words("Import"));
    call(ui_.tabs->widget(1), words("Export"));
    call(selectAllButton(), words("Select all loops"));
    call(deselectAllButton(), words("Deselect all loops"));
    call(eraseButton(), words("Erase"));
    call(importButton(), words("Import"));
    call(exportButton(), words("Export"));
    call(ui_.tabList, words("Direction"));
    call(ui_.importTabButton, words("Import tab, pedal to computer"));
    call(ui_.exportTabButton, words("Export tab, computer to pedal"));
    call(ui_.menuButton, words("Menu"));
    call(ui_.meter, words("Space in use"));
}

}  // namespace kzq
