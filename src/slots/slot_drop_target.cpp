#include "slots/slot_drop_target.h"

#include <algorithm>

#include "loops/facts.h"
#include "slots/slot.h"

namespace kzq {

Slot* slotOf(QObject* controller) {
    return qobject_cast<Slot*>(controller);
}

bool isAudioFile(const QUrl& url) {
    const auto name = url.fileName(QUrl::FullyDecoded);
    const auto dot = name.lastIndexOf(QLatin1Char('.'));
    if (!url.isLocalFile() || dot <= 0) {
        return false;
    }
    const auto extension = name.mid(dot + 1).toLower().toStdString();
    return std::find(audioExtensions.begin(), audioExtensions.end(), extension) != audioExtensions.end();
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
