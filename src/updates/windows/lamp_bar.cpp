#include "updates/windows/lamp_bar.h"

#include <algorithm>
#include <cmath>

#include "ui/pictures.h"
#include "ui/scaled_painter.h"

namespace kzq {
namespace {

constexpr QSize barSize(352, 24);
constexpr double firstLamp = 4;
constexpr double lamps = 43 * 8;

}  // namespace

LampBar::LampBar(QWidget* parent) : QProgressBar(parent) {
    setRange(0, 100);
    setValue(0);
    setTextVisible(false);
}

void LampBar::setDoubleValue(double value) {
    value_ = std::isnan(value) ? 0 : std::clamp(value, 0.0, 1.0);
    setValue(static_cast<int>(std::lround(value_ * maximum())));
    update();
}

QSize LampBar::sizeHint() const {
    return barSize;
}

void LampBar::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawPicture(painter, QStringLiteral("Flash_track"), QRectF(QPointF(), barSize));
    drawPictureCropped(painter, QStringLiteral("Flash_bar"),
                       QRectF(0, 0, value_ > 0 ? firstLamp + value_ * lamps : 0, barSize.height()));
}

}  // namespace kzq
