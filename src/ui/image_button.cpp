#include "ui/image_button.h"

#include <QMouseEvent>
#include <QPointer>

#include "ui/picture_words.h"

namespace kzq {

void ImageButton::mouseDown() {
    setDown(true);
    update();
}

void ImageButton::mouseDragged(bool /*inside*/) {}

bool ImageButton::sendAction() {
    const QPointer<ImageButton> self(this);
    Q_EMIT clicked(false);
    return !self.isNull();
}

/// Qt hides the mouse from disabled widgets; these buttons have their own rules for it.
bool ImageButton::event(QEvent* event) {
    if (isEnabled()) {
        return KeyButton::event(event);
    }
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            mousePressEvent(static_cast<QMouseEvent*>(event));
            return true;
        case QEvent::MouseMove:
            mouseMoveEvent(static_cast<QMouseEvent*>(event));
            return true;
        case QEvent::MouseButtonRelease:
            mouseReleaseEvent(static_cast<QMouseEvent*>(event));
            return true;
        default:
            return KeyButton::event(event);
    }
}

void ImageButton::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        mouseDown();
    }
    event->accept();
}

void ImageButton::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) {
        mouseDragged(rect().contains(event->position().toPoint()));
    }
    event->accept();
}

void ImageButton::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) {
        mouseUp();
    }
}

void ImageButton::paintEvent(QPaintEvent* /*event*/) {
    if (width() != 0 && !objectName().isEmpty()) {
        const auto name = word();
        drawWorded(*this, pictureName(), name.isEmpty() ? QStringList() : QStringList(name));
    }
}

}  // namespace kzq
