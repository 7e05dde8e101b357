#include "slots/slot_drop_target.h"

#include "slots/slot.h"

namespace kzq {

Slot* slotOf(QObject* controller) {
    return qobject_cast<Slot*>(controller);
}

void forwardDragEnter(Slot* row, QDropEvent& event) {
    if (row == nullptr || row->view() == nullptr) {
        event.ignore();
        return;
    }
    row->view()->dragOver(event);
}

void forwardDragLeave(Slot* row) {
    if (row != nullptr && row->view() != nullptr) {
        row->view()->draggingExited();
    }
}

void forwardDrop(Slot* row, QDropEvent& event) {
    if (row == nullptr || row->view() == nullptr) {
        event.ignore();
        return;
    }
    row->view()->drop(event);
}

}  // namespace kzq
