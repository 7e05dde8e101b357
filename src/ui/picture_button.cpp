#include "ui/picture_button.h"

#include <QPainter>

#include "ui/palette.h"
#include "ui/pictures.h"

namespace kzq {

void PictureButton::setPicture(const QString& name) {
    picture_ = name;
    update();
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawPicture(painter, picture_, rect(), tint());
}

QColor PictureButton::tint() const {
    if (picture_.endsWith("_On") || !(isDown() || hovering())) {
        return {};
    }
    return isDown() ? pressTint() : hoverTint();
}

}  // namespace kzq
