#include "slots/slot_ring.h"

#include "slots/slot.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

SlotRing::SlotRing(QWidget* parent) : KeyButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setProperty("focusRingRadius", picture_.width() / 2);
}

void SlotRing::setController(Slot* controller) {
    controller_ = controller;
}

QRect SlotRing::focusRingRect() const {
    return {onScreen(picture_.x()), onScreen(picture_.y()), onScreen(picture_.width()),
            onScreen(picture_.height())};
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

void SlotRing::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawPicture(painter, pictureName(), picture_);
}

}  // namespace kzq
