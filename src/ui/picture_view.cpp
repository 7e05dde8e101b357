#include "ui/picture_view.h"

#include <QPainter>

#include "ui/pictures.h"

namespace kzq {

PictureView::PictureView(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void PictureView::setPicture(const QString& name) {
    picture_ = name;
    update();
}

void PictureView::setFit(Fit fit) {
    fit_ = fit;
    update();
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (fit_ == Fit::cropped) {
        drawPictureCropped(painter, picture_, rect());
    } else {
        drawPicture(painter, picture_, rect());
    }
}

}  // namespace kzq
