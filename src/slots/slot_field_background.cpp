#include "slots/slot_field_background.h"

#include <QPainter>

#include "slots/row_sound_painter.h"
#include "slots/slot.h"
#include "ui/pictures.h"

namespace kzq {

SlotFieldBackground::SlotFieldBackground(QWidget* parent) : SlotDropTarget(parent) {}

void SlotFieldBackground::setImage(const QString& name) {
    image_ = name;
    update();
}

void SlotFieldBackground::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawPicture(painter, image_, rect());
    const auto* const row = controller();
    if (row != nullptr && row->dropSign() && row->field() != nullptr) {
        drawDropSign(painter, rect(), row->field()->x() - x(), *row->dropSign());
        return;
    }
    if (row != nullptr) {
        painter.translate(-pos());
        drawRowSound(painter, *row);
        painter.translate(pos());
    }
    if (row != nullptr && row->view() != nullptr && row->view()->dropHovering()) {
        drawPicture(painter, QString::fromLatin1("Export_field_drop"), rect());
    }
}

}  // namespace kzq
