#pragma once

#include <QList>
#include <QUrl>
#include <cstdint>

#include "platform/fixed.h"

class QObject;
class QWidget;

namespace kzq {

class Slot;
class SlotFieldEditor;

/// What the rows report to the application's controller. Main thread.
class SlotDelegate : Fixed {
  public:
    virtual ~SlotDelegate() = default;

    /// The checkbox was clicked; the row already shows its new state.
    virtual void checkboxStateChangedForImportSlot(Slot& slot) = 0;
    virtual void buttonClickedForExportSlot(Slot& slot) = 0;
    virtual void nameEditingBeganForSlot(Slot& slot) = 0;
    /// Belongs to the pair; the rows do not send it.
    virtual void nameEditingEndedForSlot(Slot& slot) = 0;
    /// A staged file is about to be removed; `exporting` still names it.
    virtual void exportAboutToBeRemoved(Slot& slot) = 0;
    /// It was removed: `exporting` and `exported` are cleared.
    virtual void exportRemoved(Slot& slot) = 0;
    /// The row of that number in the export list (context not 0) or the import list (context 0); null for
    /// number 0.
    virtual Slot* slotNumber(std::uint8_t number, std::int32_t context) = 0;
    /// The ring in place of the number was pressed, or P; play, give up or stop, as the row shows.
    virtual void playClickedForSlot(Slot& slot) = 0;
    /// A/B was pressed, or Shift+P.
    virtual void compareClickedForSlot(Slot& slot) = 0;
    /// Files were dropped on the row: at least one, in the order of the drag.
    virtual void slotReceivedDroppedURLs(Slot& slot, const QList<QUrl>& urls) = 0;
    /// Files that it would take are held over the row; none: no longer.
    virtual void filesHeldOverSlot(Slot& /*slot*/, const QList<QUrl>& /*urls*/) {}
    /// The pointer drags a row that has a loop; its button is still down.
    virtual void dragBegunForSlot(Slot& /*slot*/) {}

    /// The one editor that all name fields of `window` share, if `object` is a SlotField; else null. The
    /// controller owns it. Without an editor a row cannot be renamed.
    virtual SlotFieldEditor* windowWillReturnFieldEditor(QWidget* window, QObject* object) = 0;
};

}  // namespace kzq
