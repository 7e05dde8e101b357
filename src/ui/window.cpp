#include "ui/window.h"

#include <QApplication>
#include <QCloseEvent>

namespace kzq {

void Window::closeEvent(QCloseEvent* event) {
    event->accept();
    // queued: quitting closes all windows, and this one is still closing
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

}  // namespace kzq
