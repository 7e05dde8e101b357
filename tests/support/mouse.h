#pragma once

#include <QApplication>
#include <QEnterEvent>
#include <QMouseEvent>
#include <QWidget>

namespace kzq::test {

/// The left button and the pointer over one widget, as the platform would send them.
class Mouse {
  public:
    explicit Mouse(QWidget& widget) : widget_(widget) {}

    void enter() {
        QEnterEvent event(inside(), inside(), inside());
        QApplication::sendEvent(&widget_, &event);
    }
    void leave() {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(&widget_, &event);
    }
    void press() { send(QEvent::MouseButtonPress, inside(), Qt::LeftButton, Qt::LeftButton); }
    void dragOut() { send(QEvent::MouseMove, {-5, -5}, Qt::NoButton, Qt::LeftButton); }
    void dragBy(QPointF way) { send(QEvent::MouseMove, inside() + way, Qt::NoButton, Qt::LeftButton); }
    void dragIn() { send(QEvent::MouseMove, inside(), Qt::NoButton, Qt::LeftButton); }
    /// Where it was pressed.
    void release() { send(QEvent::MouseButtonRelease, inside(), Qt::LeftButton, Qt::NoButton); }

  private:
    static QPointF inside() { return {4, 4}; }

    void send(QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, widget_.mapToGlobal(at), button, buttons, Qt::NoModifier);
        QApplication::sendEvent(&widget_, &event);
    }

    QWidget& widget_;
};

}  // namespace kzq::test
