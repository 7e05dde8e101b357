#include "app/menu_closing.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QWidget>
#include <utility>

namespace kzq {

namespace {

bool happensToWindow(QEvent::Type type) {
    switch (type) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowStateChange:
        case QEvent::ScreenChangeInternal:
        case QEvent::WindowDeactivate:
        case QEvent::WindowBlocked:
        case QEvent::WindowUnblocked:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

/// Tool tips appear and disappear as the pointer moves; to the user they are not windows.
bool isWindow(const QObject& watched) {
    if (!watched.isWidgetType()) {
        return false;
    }
    const auto& widget = static_cast<const QWidget&>(watched);
    const auto type = widget.windowType();
    return widget.isWindow() && type != Qt::ToolTip && type != Qt::Popup;
}

}  // namespace

MenuClosing::MenuClosing(std::function<void()> close) : close_(std::move(close)) {
    qApp->installEventFilter(this);
}

bool MenuClosing::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    const bool window = happensToWindow(type) && isWindow(*watched);
    const bool menuOpens = type == QEvent::Show && qobject_cast<QMenu*>(watched) != nullptr;
    const bool entryActs = type == QEvent::Shortcut && qobject_cast<QAction*>(watched) != nullptr;
    if (window || menuOpens || entryActs) {
        close_();
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace kzq
