#include "ui/panels/about_window.h"

#include <QCloseEvent>
#include <cmath>

#include "ui/panels/about.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr int cornerRadius = 24;

/// All pixels that a rectangle with round corners touches: a compositor blends those at its edge.
QRegion roundedRegion(QSize size, int radius) {
    QRegion region(QRect({}, size).adjusted(0, radius, 0, -radius));
    for (int row = 0; row < radius; ++row) {
        const int rise = radius - row - 1;  // of the row's lower edge over the centre of the corner
        const int inset = radius - static_cast<int>(std::ceil(std::sqrt(radius * radius - rise * rise)));
        const QRect line(inset, row, size.width() - 2 * inset, 1);
        region += line;
        region += line.translated(0, size.height() - 1 - 2 * row);
    }
    return region;
}

}  // namespace

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

/// Without a compositor, what is clear would be black.
void AboutWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    setMask(roundedRegion(size(), onScreen(cornerRadius)));
}

void AboutWindow::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    if (controller_) {
        controller_->close();
    }
}

}  // namespace kzq
