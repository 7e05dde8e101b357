#include "slots/slot_ring.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPainter>

#include "slots/slot.h"
#include "ui/pictures.h"

namespace kzq {

SlotRing::SlotRing(QWidget* parent) : KeyButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setProperty("focusRingRadius", picture_.width() / 2);
}

void SlotRing::setController(Slot* controller) {
    controller_ = controller;
}

QString SlotRing::pictureName() const {
    const auto* const row = slotOf(controller_);
    if (row == nullptr || !row->canPlay()) {
        return {};
    }
    const bool stops = row->sound().ring != RowSound::Ring::play;
    if (!stops && !row->touched() && !isDown()) {
        return {};
    }
    const auto* const state = isDown() ? "Press" : hovering() ? "Hover" : stops ? "Off" : "Row";
    return QString::fromLatin1(stops ? "Stop_%1" : "Play_%1").arg(QLatin1String(state));
}

/// It is no stop of Tab, so Tab goes on from the row's button.
bool SlotRing::focusNextPrevChild(bool next) {
    auto* const row = slotOf(controller_);
    if (row == nullptr || row->button() == nullptr || !row->button()->isEnabled()) {
        return KeyButton::focusNextPrevChild(next);
    }
    row->button()->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    if (!next) {
        QKeyEvent back(QEvent::KeyPress, Qt::Key_Backtab, Qt::ShiftModifier);
        QCoreApplication::sendEvent(row->button(), &back);
    }
    return true;
}

void SlotRing::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawPicture(painter, pictureName(), picture_);
}

}  // namespace kzq
