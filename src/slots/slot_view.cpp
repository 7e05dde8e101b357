#include "slots/slot_view.h"

#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>

#include "slots/slot.h"

namespace kzq {

SlotView::SlotView(QWidget* parent) : QWidget(parent) {}

SlotView::~SlotView() {
    if (controller_ != nullptr) {
        controller_->viewGoes();
    }
}

Slot* SlotView::controller() const {
    return controller_;
}

void SlotView::setController(Slot* controller) {
    controller_ = controller;
}

bool SlotView::prepareForDragOperation() const {
    return controller_ != nullptr && controller_->context() == Slot::exportContext;
}

Qt::DropAction SlotView::draggingEntered(const QDropEvent& drag) const {
    const auto urls = drag.mimeData()->urls();
    const bool taken = prepareForDragOperation() && !urls.isEmpty() && isAudioFile(urls.first()) &&
                       drag.possibleActions().testFlag(Qt::CopyAction);
    return taken ? Qt::CopyAction : Qt::IgnoreAction;
}

void SlotView::draggingExited() {
    setDropHovering(false);
    reportHeld({});
}

bool SlotView::performDragOperation(const QDropEvent& drop) {
    const auto* const source = qobject_cast<QWidget*>(drop.source());
    if (source != nullptr && (source == this || isAncestorOf(source))) {
        return false;
    }
    const auto urls = drop.mimeData()->urls();
    if (!prepareForDragOperation() || urls.isEmpty()) {
        return false;
    }
    if (auto* const delegate = controller_->delegate(); delegate != nullptr) {
        delegate->slotReceivedDroppedURLs(*controller_, urls);
    }
    return true;
}

void SlotView::dragOver(QDropEvent& event) {
    const auto action = draggingEntered(event);
    setDropHovering(action == Qt::CopyAction);
    reportHeld(dropHovering_ ? event.mimeData()->urls() : QList<QUrl>());
    event.setDropAction(action);
    event.setAccepted(action == Qt::CopyAction);
}

void SlotView::drop(QDropEvent& event) {
    draggingExited();
    const bool taken = event.possibleActions().testFlag(Qt::CopyAction) && performDragOperation(event);
    event.setDropAction(taken ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(taken);
}

void SlotView::setDropHovering(bool hovering) {
    dropHovering_ = hovering;
    if (controller_ != nullptr && controller_->background() != nullptr) {
        controller_->background()->update();
    }
}

void SlotView::reportHeld(const QList<QUrl>& urls) {
    if (controller_ != nullptr && controller_->isExport() && controller_->delegate() != nullptr) {
        controller_->delegate()->filesHeldOverSlot(*controller_, urls);
    }
}

void SlotView::dragEnterEvent(QDragEnterEvent* event) {
    dragOver(*event);
}

void SlotView::dragMoveEvent(QDragMoveEvent* event) {
    dragOver(*event);
}

void SlotView::dragLeaveEvent(QDragLeaveEvent* event) {
    draggingExited();
    event->accept();
}

void SlotView::dropEvent(QDropEvent* event) {
    drop(*event);
}

}  // namespace kzq
