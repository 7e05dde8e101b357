#include "ui/color_view.h"

#include <QPainter>

namespace kzq {

void ColorView::setColor(std::optional<QColor> color) {
    color_ = color;
    update();
}

void ColorView::paintEvent(QPaintEvent* /*event*/) {
    if (width() != 0 && color_) {
        QPainter(this).fillRect(rect(), *color_);
    }
}

}  // namespace kzq
