#include "app/application.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWindow>

#include "ui/key_guard.h"

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

Application::Application(int& count, char** arguments) : QApplication(count, arguments) {
    connect(this, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (keys_ != nullptr && state != Qt::ApplicationActive) {
            keys_->leave();
        }
    });
}

bool Application::notify(QObject* receiver, QEvent* event) {
    // An event reaches the window once and then travels from widget to widget: only its arrival counts.
    if (!receiver->isWindowType() || !isUserInput(*event)) {
        return QApplication::notify(receiver, event);
    }
    auto& window = static_cast<QWindow&>(*receiver);
    if (keys_ != nullptr) {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
            return notifyKey(window, static_cast<QKeyEvent&>(*event));
        }
        keys_->release();
    }
    return notifyInput(window, *event);
}

bool Application::notifyKey(QWindow& window, QKeyEvent& event) {
    const auto verdict = keys_->judge(window, event);
    if (verdict == KeyGuard::Verdict::nothing) {
        event.accept();
        return true;
    }
    if (verdict == KeyGuard::Verdict::act || event.isAutoRepeat()) {
        return notifyInput(window, event);
    }
    QKeyEvent repeat(event.type(), event.key(), event.modifiers(), event.nativeScanCode(),
                     event.nativeVirtualKey(), event.nativeModifiers(), event.text(), true,
                     static_cast<quint16>(event.count()));
    repeat.setTimestamp(event.timestamp());
    const bool heard = notifyInput(window, repeat);
    event.setAccepted(repeat.isAccepted());
    return heard;
}

bool Application::notifyInput(QWindow& window, QEvent& event) {
    if (filter(window, event)) {
        event.accept();
        return true;
    }
    return QApplication::notify(&window, &event);
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
