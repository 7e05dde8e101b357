#include "ui/panels/progress_views.h"

#include <QAccessible>
#include <QLinearGradient>
#include <algorithm>

#include "ui/background.h"
#include "ui/palette.h"
#include "ui/scaled_painter.h"

namespace kzq {
namespace {

void fillRounded(ScaledPainter& painter, const QRectF& rect, double radius, const QBrush& brush) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(painter.sharp(rect), radius, radius);
}

}  // namespace

void ProgressGround::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawPlate(painter, painter.bounds().toAlignedRect());
    painter.fill(QRectF(48, 74, 304, 4), QColor(0x63, 0x40, 0x2F));
    fillRounded(painter, QRect(88, 66, 224, 20), 4, rimColor());
}

void ProgressTrack::setValue(int percent) {
    percent = std::clamp(percent, 0, 100);
    if (percent == value_) {
        return;
    }
    value_ = percent;
    QAccessibleValueChangeEvent event(this, percent);
    QAccessible::updateAccessibility(&event);
}

void ProgressTrack::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    fillRounded(painter, painter.bounds(), 2, grooveColor());
}

void ProgressFill::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    QLinearGradient tape(0, 0, 0, painter.bounds().height());
    tape.setColorAt(0, QColor(0xFF, 0xFA, 0xF0));
    tape.setColorAt(1, QColor(0xF0, 0xE4, 0xCE));
    fillRounded(painter, painter.bounds(), 2, tape);
}

}  // namespace kzq
