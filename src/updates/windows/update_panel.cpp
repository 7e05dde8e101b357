#include "updates/windows/update_panel.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

#include "ui/background.h"
#include "ui/scale.h"
#include "ui/window.h"

namespace kzq {
namespace {

Qt::WindowFlags flagsFor(UpdatePanel::CloseButton closeButton) {
    const Qt::WindowFlags flags =
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowStaysOnTopHint;
    return closeButton == UpdatePanel::CloseButton::none
               ? flags
               : flags | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
}

}  // namespace

UpdatePanel::UpdatePanel(CloseButton closeButton)
    : QWidget(nullptr, flagsFor(closeButton)), ring_(new FocusRing(this)) {
    setAttribute(Qt::WA_QuitOnClose, false);
    Scale::ofProgram().take(*this);
    connect(&Scale::ofProgram(), &Scale::changed, this, [this] { keepOnScreen(*this, size()); });
}

void UpdatePanel::setDefaultButton(AlertButton* button) {
    if (button != defaultButton_) {
        defaultButton_ = button;
        focusDefault();
    }
}

void UpdatePanel::focusDefault() {
    if (defaultButton_ && defaultButton_->isVisible()) {
        defaultButton_->setFocus(Qt::OtherFocusReason);
        ring_->mark(defaultButton_);
    } else if (isVisible()) {
        // not the next button: a key meant for the previous one must not press it
        setFocus(Qt::OtherFocusReason);
        ring_->mark(nullptr);
    }
}

void UpdatePanel::centre() {
    const auto* under = QGuiApplication::screenAt(QCursor::pos());
    const auto* const screen = under != nullptr ? under : QGuiApplication::primaryScreen();
    if (screen != nullptr) {
        Scale::ofProgram().adopt(*this);
        centredAt_ = Scale::ofProgram().size();
        const auto size = frameGeometry().size();
        move(screen->availableGeometry().center() - QPoint(size.width() / 2, size.height() / 2));
    }
}

void UpdatePanel::present() {
    if (!isVisible() && centredAt_ != Scale::ofProgram().size()) {
        centre();
    }
    show();
    raise();
    activateWindow();
    focusDefault();
}

void UpdatePanel::closeEvent(QCloseEvent* event) {
    Q_EMIT closing();
    event->accept();
}

void UpdatePanel::keyPressEvent(QKeyEvent* event) {
    const bool yes = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->isAutoRepeat()) {
        event->accept();
    } else if (event->key() == Qt::Key_Escape) {
        Q_EMIT escape();
    } else if (yes && defaultButton_ && defaultButton_->isVisible()) {
        defaultButton_->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void UpdatePanel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawPlate(painter, rect());
}

}  // namespace kzq
