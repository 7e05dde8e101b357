#include "ui/alert_button.h"

#include <cmath>

#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr int chevronsRoom = 5;       // spaces before the word
constexpr double chevronsLeft = 9.5;  // of the middled word
constexpr double chevronPitch = 6;

}  // namespace

AlertButton::AlertButton(Face face, QWidget* parent) : KeyButton(parent), face_(face) {}

void AlertButton::setFace(Face face) {
    face_ = face;
    updateGeometry();
    update();
}

QSize AlertButton::sizeHint() const {
    const auto usual = hasChevrons() ? QSize(136, 40) : QSize(face_ == Face::cream ? 112 : 96, 36);
    return usual.expandedTo({fullWidth(), 0});
}

int AlertButton::fullWidth() const {
    return faceWidth(shownWord());
}

QString AlertButton::shownWord() const {
    return QString(hasChevrons() ? chevronsRoom : 0, ' ') + text();
}

bool AlertButton::hasChevrons() const {
    return face_ == Face::green || face_ == Face::blue;
}

ButtonFace AlertButton::painted() const {
    const auto state = !isEnabled() ? ButtonState::disabled
                       : isDown()   ? ButtonState::down
                       : hovering() ? ButtonState::hover
                                    : ButtonState::off;
    return face_ == Face::cream   ? creamFace(state)
           : face_ == Face::green ? greenFace(state)
           : face_ == Face::blue  ? blueFace(state)
                                  : brownFace(state);
}

void AlertButton::paintEvent(QPaintEvent* /*event*/) {
    const auto face = painted();
    ScaledPainter painter(this);
    const auto bounds = painter.bounds().toRect();
    drawButtonFace(painter, bounds, face, shownWord());
    if (!hasChevrons()) {
        return;
    }
    const double word = std::round(painter.advance(text()));
    const double left = (bounds.width() - word) / 2 - chevronsLeft;
    const double middle = upperMiddle(bounds, face);
    painter.setPen(QPen(face.word, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const double x : {left, left + chevronPitch}) {
        const double back = face_ == Face::green ? x + 4 : x;
        const double tip = face_ == Face::green ? x : x + 4;
        painter.drawPolyline(QPolygonF{{back, middle - 4}, {tip, middle}, {back, middle + 4}});
    }
}

}  // namespace kzq
