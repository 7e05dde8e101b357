#include "ui/window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <algorithm>

namespace kzq {

void Window::closeEvent(QCloseEvent* event) {
    event->accept();
    // queued: quitting closes all windows, and this one is still closing
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void keepOnScreen(QWidget& window, QSize size) {
    if (!window.isVisible()) {
        return;
    }
    const auto frame = window.frameGeometry().size() - window.size();
    const auto room = window.screen()->availableGeometry();
    const QRect now(window.pos(), size + frame);
    const QPoint last(room.right() + 1 - now.width(), room.bottom() + 1 - now.height());
    window.move(std::max(room.left(), std::min(now.left(), last.x())),
                std::max(room.top(), std::min(now.top(), last.y())));
}

}  // namespace kzq
