#include "ui/scaled_painter.h"

#include <QFontMetricsF>
#include <QWidget>
#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/cut_text.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr double thickestLine = 2;

constexpr int smallestType = 8;

ScaledPainter::Watcher& watcher() {
    static ScaledPainter::Watcher one;
    return one;
}

/// How a painter's coordinates become pixels of the device, in one direction.
struct Direction {
    double scale;
    double offset;  ///< of its origin, which may lie in the middle of a pixel

    double toPixel(double coordinate) const {
        return (std::floor(coordinate * scale + offset + 0.5) - offset) / scale;
    }
};

/// One side of a rectangle.
void sharpen(double& from, double& length, const Direction& direction) {
    const auto end = direction.toPixel(from + length);
    const auto begin = direction.toPixel(from);
    length = length <= thickestLine ? toPixels(length, direction.scale) : end - begin;
    from = begin;
}

}  // namespace

bool isWhole(double deviceScale) {
    const auto line = thickestLine * deviceScale;
    return std::abs(line - std::round(line)) < 1e-6;
}

bool isWhole(const QPainter& painter) {
    const auto& device = painter.deviceTransform();
    const auto isOnPixel = [](double at) { return at == std::floor(at); };
    return isWhole(device.m11()) && isWhole(device.m22()) && isOnPixel(device.dx()) && isOnPixel(device.dy());
}

double toPixel(double coordinate, double deviceScale) {
    return std::floor(coordinate * deviceScale + 0.5) / deviceScale;
}

double toPixels(double thickness, double deviceScale) {
    return thickness > thickestLine ? toPixel(thickness, deviceScale)
                                    : std::max(1.0, std::floor(thickness * deviceScale)) / deviceScale;
}

double deviceScaleOf(const QPainter& painter) {
    return painter.transform().m11() * painter.device()->devicePixelRatioF();
}

QRectF sharp(const QPainter& painter, const QRectF& rect) {
    const auto& device = painter.deviceTransform();
    auto at = rect.topLeft();
    double width = rect.width();
    double height = rect.height();
    sharpen(at.rx(), width, {device.m11(), device.dx()});
    sharpen(at.ry(), height, {device.m22(), device.dy()});
    return {at, QSizeF(width, height)};
}

ScaledPainter::ScaledPainter(QWidget* widget) : ScaledPainter(widget, scaleOf(*widget)) {
    given_ = fontOf(*widget);
}

ScaledPainter::ScaledPainter(QPaintDevice* device, double size)
    : QPainter(device), size_(size), bounds_(0, 0, device->width() / size_, device->height() / size_) {
    if (size_ != 1) {
        scale(size_, size_);
    }
}

double ScaledPainter::deviceScale() const {
    return size_ * device()->devicePixelRatioF();
}

void ScaledPainter::setType(const QFont& given) {
    given_ = given;
}

void ScaledPainter::fitType(const QString& text, double room) {
    while (given_.pixelSize() > smallestType && advance(text) > room) {
        given_.setPixelSize(given_.pixelSize() - 1);
    }
}

void ScaledPainter::fitType(const QSizeF& room, int flags, const QString& text) {
    const auto fits = [&] {
        const auto size = sizeOf(room * size_, flags, text);
        return size.width() <= room.width() * size_ && size.height() <= room.height() * size_;
    };
    while (given_.pixelSize() > smallestType && !fits()) {
        given_.setPixelSize(given_.pixelSize() - 1);
    }
}

QFont ScaledPainter::realType() const {
    return size_ == 1 ? given_ : fontOnScreen(given_);
}

/// In pixels of the screen.
QSizeF ScaledPainter::sizeOf(const QSizeF& box, int flags, const QString& text) const {
    return QFontMetricsF(realType()).boundingRect(QRectF({}, box), flags, text).size();
}

void ScaledPainter::setWatcher(Watcher watcher) {
    kzq::watcher() = std::move(watcher);
}

void ScaledPainter::writeWithin(const QPointF& baseline, const QString& text, double room) {
    fitType(text, room);
    write(baseline, text);
}

void ScaledPainter::write(const QPointF& baseline, const QString& text) {
    if (watcher()) {
        const auto left = transform().map(baseline).x();
        watcher()(text, left > -1 && left + advance(text) * size_ < device()->width() + 1);
    }
    if (size_ == 1) {
        setFont(given_);
        drawText(baseline, text);
        return;
    }
    const auto at = transform().map(baseline);
    save();
    resetTransform();
    setFont(fontOnScreen(given_));
    drawText(QPointF(at.x(), std::round(at.y())), text);
    restore();
}

void ScaledPainter::write(const QRectF& box, int flags, const QString& text) {
    if (watcher()) {
        const auto size = sizeOf(box.size() * size_, flags, text);
        watcher()(text, size.width() < box.width() * size_ + 1 && size.height() < box.height() * size_ + 1);
    }
    if (size_ == 1) {
        setFont(given_);
        drawText(box, flags, text);
        return;
    }
    const auto within = transform().mapRect(box);
    save();
    resetTransform();
    setFont(fontOnScreen(given_));
    drawText(within, flags, text);
    restore();
}

double ScaledPainter::advance(const QString& text) const {
    return size_ == 1 ? QFontMetricsF(given_).horizontalAdvance(text) : advanceOf(text, given_);
}

void ScaledPainter::writeName(const QPointF& baseline, const QString& name, double room) {
    const auto direction = name.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    const QFontMetricsF metrics(realType());
    const auto before = layoutDirection();
    setLayoutDirection(direction);
    write(baseline, cutText(name, metrics, room * size_, direction));
    setLayoutDirection(before);
}

QRectF ScaledPainter::sharp(const QRectF& rect) const {
    return isWhole(*this) ? rect : kzq::sharp(*this, rect);
}

}  // namespace kzq
