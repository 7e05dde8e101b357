#include "ui/link_button.h"

#include <QEnterEvent>

namespace kzq {

void LinkButton::setHovered(bool hovered) {
    if (delegate_ != nullptr) {
        delegate_->linkButtonHoverStateChanged(*this, hovered);
    }
    setCursor(hovered ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void LinkButton::enterEvent(QEnterEvent* event) {
    KeyButton::enterEvent(event);
    setHovered(true);
}

void LinkButton::leaveEvent(QEvent* event) {
    KeyButton::leaveEvent(event);
    setHovered(false);
}

void LinkButton::paintEvent(QPaintEvent* /*event*/) {}

}  // namespace kzq
