#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "app/model/loop_model.h"
#include "app/rows.h"
#include "platform/fixed.h"

namespace kzq {

class About;
class MainWindow;

/// Carries out in the window what LoopModel has decided, one transition at a time: in the rows, the meter,
/// the buttons, the warning and the About panel. All of them keep their state, and a transition leaves alone
/// what it does not name. Main thread.
class Presenter : Fixed {
  public:
    /// All outlive it; `about` is filled at launch.
    Presenter(MainWindow& window, const Rows& rows, const LoopModel& model,
              const std::unique_ptr<About>& about)
        : window_(window), rows_(rows), model_(model), about_(about) {}

    // --- the pedal

    /// The controls; the rows wait for the table. "Export", the warning and what the export rows show of
    /// their files stay.
    void connected();
    /// The first table, in both lists.
    void table();
    /// A later one. Export rows are selected as their import rows are, and keep their padded size.
    void change(const LoopModel::Change& change);
    /// "Export" and the warning stay, and so do shield and progress panel, which belong to the operation.
    void left();
    /// The panel shows the version of the pedal.
    void redrawAbout();
    void meter(Frames used);

    // --- the import rows

    /// A checkbox was clicked: ends the renaming of the other rows.
    void checked(const Slot& row);
    /// Without a loop that is selected, the buttons stay as they are.
    void allSelected();
    void noneSelected();
    void endEditing();
    /// "Import" and "Erase" follow the selection.
    void selection();
    /// The file has been written: the typed name is used up.
    void saved(SlotNumber slot);

    // --- the export rows

    bool hasKeyboard(SlotNumber slot) const { return rows_.exportRow(slot).button()->hasFocus(); }

    /// `changed` is called after each of these.
    void followStaging(std::function<void()> changed) { stagingChanged_ = std::move(changed); }
    /// `file` is the user's own.
    void staged(SlotNumber slot, const QUrl& file);
    void unstaged(Slot& row);
    void sent(SlotNumber slot);
    void exportsCleared();

    /// Context 0 is the import tab, which leaves the meter as it is.
    void showTab(std::int32_t context);
    /// Ends any editing.
    void focusContent();

  private:
    void enableImportAndErase(bool enabled);
    void enableSelectButtons(bool enabled);
    void emptyMeter();
    void sayMeter(Frames used);
    /// Of the rows' loops, with their tempo, or of the files that are staged on them: a file that has been
    /// written stays until the table is read again.
    void lengths();
    void length(SlotNumber slot);
    static void hold(Slot& row, const Loop* loop);

    MainWindow& window_;
    const Rows& rows_;
    const LoopModel& model_;
    const std::unique_ptr<About>& about_;
    std::function<void()> stagingChanged_ = [] {};
};

}  // namespace kzq
