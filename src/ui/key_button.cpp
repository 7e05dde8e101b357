#include "ui/key_button.h"

#include <QEnterEvent>
#include <QKeyEvent>

#include "ui/accessible_controls.h"

namespace kzq {

KeyButton::KeyButton(QWidget* parent) : QAbstractButton(parent) {
    installAccessibleControls();
    setFocusPolicy(Qt::TabFocus);
    setProperty("focusRingRadius", 8);
}

void KeyButton::setHovering(bool hovering) {
    hovering_ = hovering;
    update();
}

void KeyButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    setHovering(true);
}

void KeyButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    setHovering(false);
}

void KeyButton::keyPressEvent(QKeyEvent* event) {
    const auto key = event->key();
    const auto enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!enter && key != Qt::Key_Space) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    if (event->isAutoRepeat()) {
        return;
    }
    if (enter) {
        Q_EMIT clicked(isChecked());
        return;
    }
    setDown(true);
}

void KeyButton::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space) {
        QAbstractButton::keyReleaseEvent(event);
        return;
    }
    if (!event->isAutoRepeat() && isDown()) {
        setDown(false);
        Q_EMIT clicked(isChecked());
    }
}

void KeyButton::focusOutEvent(QFocusEvent* event) {
    setDown(false);
    QAbstractButton::focusOutEvent(event);
}

}  // namespace kzq
