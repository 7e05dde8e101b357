#include "app/application.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

namespace kzq {

namespace {

bool isUserInput(const QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
            return true;
        default:
            return false;
    }
}

}  // namespace

Application::Application(int& count, char** arguments) : QApplication(count, arguments) {}

bool Application::notify(QObject* receiver, QEvent* event) {
    // An event reaches the window once and then travels from widget to widget: only its arrival counts.
    if (receiver->isWindowType() && isUserInput(*event) && filter(static_cast<QWindow&>(*receiver), *event)) {
        event->accept();
        return true;
    }
    return QApplication::notify(receiver, event);
}

/// Whether the event is consumed.
bool Application::filter(QWindow& window, QEvent& event) {
    if (delegate_ == nullptr) {
        return true;
    }
    if (!delegate_->menuOpen()) {
        return false;
    }
    if (event.type() == QEvent::MouseButtonRelease) {
        mouseUp(window, static_cast<const QMouseEvent&>(event));
        return false;
    }
    return event.type() == QEvent::KeyRelease && keyUp(static_cast<const QKeyEvent&>(event));
}

void Application::mouseUp(QWindow& window, const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton &&
        !(delegate_->isMainWindow(window) && delegate_->pointInMenuBounds(event.position().toPoint()))) {
        delegate_->closeMenu();
    }
}

bool Application::keyUp(const QKeyEvent& event) {
    const auto act = [this, &event](void (ApplicationDelegate::*action)()) {
        if (!event.isAutoRepeat()) {  // a held key acts once, on release
            (delegate_->*action)();
        }
        return true;
    };
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            return act(&ApplicationDelegate::menuUp);
        case Qt::Key_Right:
        case Qt::Key_Down:
            return act(&ApplicationDelegate::menuDown);
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            return act(&ApplicationDelegate::menuGo);
        case Qt::Key_Escape:
            return act(&ApplicationDelegate::closeMenu);
        default:
            return false;
    }
}

}  // namespace kzq
