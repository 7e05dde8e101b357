#include "ui/picture_button.h"

#include <QPainter>

#include "ui/pictures.h"

namespace kzq {

void PictureButton::setPicture(const QString& name) {
    picture_ = name;
    update();
}

void PictureButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawPicture(painter, picture_, rect());
}

}  // namespace kzq
