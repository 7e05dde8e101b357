#include "slots/slot_field_background.h"

#include <algorithm>

#include "slots/row_sound_painter.h"
#include "slots/slot.h"
#include "ui/fonts.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr int tintTop = 4;
constexpr int tintHeight = 20;
constexpr int tintMargin = 6;  // left and right of the name; a waveform begins 8 behind it
constexpr int tintRadius = 4;

/// Shows where a click opens the name; in pixels of the row.
void drawNameTint(ScaledPainter& painter, const Slot& row) {
    const auto tint = row.field() != nullptr ? row.field()->tint() : QColor();
    if (!tint.isValid()) {
        return;
    }
    const double left = placeOf(*row.field()).x();
    const auto right = std::min(left + advanceOf(row.nameInSight(), textFont()), row.layout().nameRight);
    const QRectF plate(left - tintMargin, tintTop, right - left + 2 * tintMargin, tintHeight);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(tint);
    painter.drawRoundedRect(painter.sharp(plate), tintRadius, tintRadius);
    painter.restore();
}

}  // namespace

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
        drawNameTint(painter, *row);
        drawRowSound(painter, *row);
        painter.translate(corner);
    }
    if (row != nullptr && row->view() != nullptr && row->view()->dropHovering()) {
        drawPicture(painter, QString::fromLatin1("Export_field_drop"), bounds);
    }
}

}  // namespace kzq
