#include "ui/link_button.h"

namespace kzq {

void LinkButton::setHovering(bool hovering) {
    if (delegate_ != nullptr) {
        delegate_->linkButtonHoverStateChanged(*this, hovering);
    }
    setCursor(hovering ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void LinkButton::paintEvent(QPaintEvent* /*event*/) {}

}  // namespace kzq
