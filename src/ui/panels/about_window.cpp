#include "ui/panels/about_window.h"

#include <QCloseEvent>

#include "ui/panels/about.h"
#include "ui/scale.h"

namespace kzq {

AboutWindow::AboutWindow(QWidget* parent) : QWidget(parent, Qt::Dialog | Qt::FramelessWindowHint) {
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    Scale::ofProgram().take(*this);
}

void AboutWindow::setController(About* about) {
    controller_ = about;
}

void AboutWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isVisible() && !isActiveWindow() && controller_) {
        controller_->close();
    }
}

void AboutWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (controller_) {
        controller_->close();
    }
}

}  // namespace kzq
