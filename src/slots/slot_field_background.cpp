#include "slots/slot_field_background.h"

#include "slots/row_sound_painter.h"
#include "slots/slot.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

SlotFieldBackground::SlotFieldBackground(QWidget* parent) : SlotDropTarget(parent) {}

void SlotFieldBackground::setImage(const QString& name) {
    image_ = name;
    update();
}

void SlotFieldBackground::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    const auto bounds = painter.bounds();
    drawPicture(painter, image_, bounds);
    const auto* const row = controller();
    if (row != nullptr && row->dropSign() && row->field() != nullptr) {
        drawDropSign(painter, bounds, placeOf(*row->field()).x() - placeOf(*this).x(), *row->dropSign());
        return;
    }
    if (row != nullptr) {
        const auto corner = placeOf(*this).topLeft();
        painter.translate(-corner);
        drawRowSound(painter, *row);
        painter.translate(corner);
    }
    if (row != nullptr && row->view() != nullptr && row->view()->dropHovering()) {
        drawPicture(painter, QString::fromLatin1("Export_field_drop"), bounds);
    }
}

}  // namespace kzq
