#include "stage.h"

#include <QApplication>
#include <QEnterEvent>
#include <QMouseEvent>

#include "ui/color_view.h"
#include "ui/focus_ring.h"
#include "ui/palette.h"

namespace kzq::gallery {

namespace {

constexpr int room = 6;  // the focus ring takes 4

Shot shootOn(const QColor& color, const QString& caption, QWidget& control, Hand hand, QWidget* ringed) {
    ColorView ground;
    ground.setColor(color);
    ground.resize(control.size() + QSize(2 * room, 2 * room));
    control.setParent(&ground);
    control.move(room, room);
    control.show();
    touch(control, hand);
    FocusRing ring(&ground);
    ring.mark(ringed);
    auto shot = shoot(caption, ground);
    control.setParent(nullptr);
    return shot;
}

}  // namespace

Shot shootOnPlate(const QString& caption, QWidget& control, Hand hand) {
    return shootOn(KZQBrown(), caption, control, hand, hand == Hand::keyboard ? &control : nullptr);
}

Shot shootInTray(const QString& caption, QWidget& control, QWidget* ringed) {
    return shootOn(trayColor(), caption, control, Hand::none, ringed);
}

Shot shoot(const QString& caption, QWidget& window) {
    QCoreApplication::sendPostedEvents();
    return {caption, window.grab()};
}

void touch(QWidget& control, Hand hand) {
    if (hand != Hand::hovering && hand != Hand::pressing) {
        return;
    }
    const QPointF middle(control.rect().center());
    const QPointF global(control.mapToGlobal(middle));
    QEnterEvent enter(middle, middle, global);
    QCoreApplication::sendEvent(&control, &enter);
    if (hand != Hand::pressing) {
        return;
    }
    QMouseEvent press(QEvent::MouseButtonPress, middle, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&control, &press);
}

}  // namespace kzq::gallery
