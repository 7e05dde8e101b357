#include "ui/alert_button.h"

#include "ui/button_face.h"

namespace kzq {

AlertButton::AlertButton(Face face, QWidget* parent) : KeyButton(parent), face_(face) {}

void AlertButton::setFace(Face face) {
    face_ = face;
    updateGeometry();
    update();
}

QSize AlertButton::sizeHint() const {
    return face_ == Face::cream ? QSize(112, 36) : QSize(96, 36);
}

void AlertButton::paintEvent(QPaintEvent* /*event*/) {
    const auto state = !isEnabled() ? ButtonState::disabled
                       : isDown()   ? ButtonState::down
                       : hovering() ? ButtonState::hover
                                    : ButtonState::off;
    QPainter painter(this);
    drawButtonFace(painter, rect(), face_ == Face::cream ? creamFace(state) : brownFace(state), text());
}

}  // namespace kzq
