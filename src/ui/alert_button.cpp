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
    switch (face_) {
        case Face::cream:
            return {112, 36};
        case Face::green:
        case Face::blue:
            return {136, 40};
        default:
            return {96, 36};
    }
}

int AlertButton::fullWidth() const {
    return faceWidth(shownWord());
}

QString AlertButton::shownWord() const {
    const bool chevrons = face_ == Face::green || face_ == Face::blue;
    return QString(chevrons ? chevronsRoom : 0, ' ') + text();
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
    if (face_ != Face::green && face_ != Face::blue) {
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
