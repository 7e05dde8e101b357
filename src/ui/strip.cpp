#include "ui/strip.h"

#include <algorithm>
#include <utility>

#include "ui/figures.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr QSize tape(216, 24);
constexpr QPoint next(8, 26);  // from one to the next
constexpr std::size_t most = 3;
constexpr QMargins around(1, 1, 2, 3);  // edge and shadow
constexpr QPoint pointerAt(-6, 2);      // in the first strip

constexpr double stripBaseline = 16.5;
constexpr int nameLeft = 14;
constexpr int nameWidth = 118;
constexpr int lengthRight = 168;
constexpr int lengthPixels = 12;
constexpr float lengthStrength = 0.8F;

constexpr QPoint scrapAt(208, -16);
constexpr int scrapHeight = 20;
constexpr std::size_t wideFrom = 10;
constexpr double countBaseline = 14.6;
constexpr float shadowStrength = 0.35F;

int scrapWidth(std::size_t count) {
    return count < wideFrom ? 28 : 36;
}

/// All that is drawn, in the coordinates of the first strip.
QRect extent(std::size_t count) {
    const auto shown = static_cast<int>(std::min(count, most));
    auto bounds = QRect(QPoint(), tape).united(QRect(next * (shown - 1), tape)).marginsAdded(around);
    return count < 2 ? bounds : bounds.united(QRect(scrapAt, QSize(scrapWidth(count), scrapHeight)));
}

QColor shadow() {
    return QColor::fromRgbF(0, 0, 0, shadowStrength);
}

}  // namespace

Strip::Strip(std::vector<CarriedLoop> loops, QWidget* window)
    : QWidget(window, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
                          Qt::NoDropShadowWindowHint | Qt::BypassWindowManagerHint),
      loops_(std::move(loops)),
      size_(Scale::ofProgram().size()) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    resize(extent(loops_.size()).size() * size_);
}

QPoint Strip::hotSpot() const {
    return (pointerAt - extent(loops_.size()).topLeft()) * size_;
}

void Strip::follow(QPoint pointer) {
    move(pointer - hotSpot());
    if (!isVisible()) {
        show();
        raise();
    }
}

void Strip::setArrived(double share) {
    percent_ = static_cast<int>(std::clamp(share, 0.0, 1.0) * 100);
    update();
}

QPixmap Strip::picture() const {
    QPixmap pixmap(size() * devicePixelRatioF());
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    pixmap.fill(Qt::transparent);
    ScaledPainter painter(&pixmap, size_);
    paint(painter, true);
    return pixmap;
}

void Strip::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this, size_);
    paint(painter, false);
}

void Strip::paint(ScaledPainter& painter, bool whole) const {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(-extent(loops_.size()).topLeft());
    const auto arrived = toQt(words("%1 %", percent_));
    for (auto i = std::min(loops_.size(), most); i-- > 0;) {
        const auto& loop = loops_[i];
        paintStrip(painter, next * static_cast<int>(i), loop, whole ? loop.length : i == 0 ? arrived : "");
    }
    if (loops_.size() > 1) {
        paintCount(painter, scrapAt);
    }
}

void Strip::paintStrip(ScaledPainter& painter, QPointF at, const CarriedLoop& loop, const QString& figures) {
    const QRectF body(at, tape);
    painter.setPen(Qt::NoPen);
    painter.setBrush(shadow());
    painter.drawRoundedRect(body.translated(2, 3), 3, 3);
    painter.setBrush(grooveColor());
    painter.drawRoundedRect(body.adjusted(-1, -1, 1, 1), 3, 3);
    drawPicture(painter, "Drag_strip", body);
    painter.setType(textFont());
    painter.setPen(KZQWhite());
    painter.writeName(at + QPointF(nameLeft, stripBaseline), loop.name, nameWidth);
    painter.setType(textFont(lengthPixels));
    auto cream = creamColor();
    cream.setAlphaF(lengthStrength);
    painter.setPen(cream);
    drawFigures(painter, at.x() + lengthRight, at.y() + stripBaseline, figures);
}

void Strip::paintCount(ScaledPainter& painter, QPointF at) const {
    const auto width = scrapWidth(loops_.size());
    painter.setPen(Qt::NoPen);
    painter.setBrush(shadow());
    painter.drawRoundedRect(QRectF(at + QPointF(2, 3), QSizeF(width - 4, scrapHeight)), 1, 1);
    drawPicture(painter, width == scrapWidth(1) ? "Drag_count" : "Drag_count_wide",
                QRectF(at, QSizeF(width, scrapHeight)));
    const auto count = QString::number(loops_.size());
    painter.setType(wordFont(13));
    painter.setPen(Qt::black);
    painter.write(at + QPointF((width - painter.advance(count)) / 2, countBaseline), count);
}

}  // namespace kzq
