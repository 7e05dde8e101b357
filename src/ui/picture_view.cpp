#include "ui/picture_view.h"

#include <QPainter>

#include "ui/pictures.h"
#include "ui/scale.h"

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
    if (fit_ == Fit::scaled) {
        drawPicture(painter, picture_, rect());
        return;
    }
    const auto scale = scaleOf(*this);
    painter.scale(scale, scale);
    drawPictureCropped(painter, picture_, {0, 0, width() / scale, height() / scale});
}

}  // namespace kzq
