#include "ui/background.h"

#include <QKeyEvent>
#include <QLinearGradient>
#include <QPainter>

#include "ui/palette.h"
#include "ui/pictures.h"

namespace kzq {

Background::Background(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::ClickFocus);
}

void Background::setPicture(const QString& name) {
    picture_ = name;
    update();
}

void Background::keyPressEvent(QKeyEvent* event) {
    event->accept();
}

void Background::keyReleaseEvent(QKeyEvent* event) {
    event->accept();
}

void Background::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    if (!drawPicture(painter, picture_, rect())) {
        drawPlate(painter, rect());
    }
}

void drawPlate(QPainter& painter, const QRect& bounds) {
    QLinearGradient plate(bounds.topLeft(), bounds.bottomLeft());
    plate.setColorAt(0, plateTopColor());
    plate.setColorAt(0.14, KZQBrown());
    plate.setColorAt(1, plateFootColor());
    painter.fillRect(bounds, plate);
}

}  // namespace kzq
