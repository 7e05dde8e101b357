#include "ui/panels/menu_item_view.h"

#include <QMouseEvent>

#include "ui/palette.h"
#include "ui/panels/menu_item.h"
#include "ui/panels/menu_item_delegate.h"

namespace kzq {

MenuItemView::MenuItemView(QWidget* parent) : ColorView(parent) {}

void MenuItemView::setController(MenuItem* item) {
    controller_ = item;
}

MenuItem* MenuItemView::controller() const {
    return controller_;
}

void MenuItemView::click() {
    if (controller_ && controller_->delegate() != nullptr) {
        controller_->delegate()->itemClicked(*controller_);  // may destroy the menu, and this with it
    }
}

void MenuItemView::enterEvent(QEnterEvent* event) {
    ColorView::enterEvent(event);
    if (controller_ && controller_->delegate() != nullptr) {
        controller_->delegate()->itemEntered(*controller_);
    }
}

void MenuItemView::leaveEvent(QEvent* event) {
    ColorView::leaveEvent(event);
    if (controller_ && controller_->delegate() != nullptr) {
        controller_->delegate()->itemExited(*controller_);
    }
}

/// Accepted, so that the release also comes here.
void MenuItemView::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
}

void MenuItemView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (width() != 0 && rect().contains(event->position().toPoint())) {
        click();
    }
}

void MenuItemView::paintEvent(QPaintEvent* event) {
    auto fill = KZQWhite();
    fill.setAlphaF(controller_ && controller_->hovered() ? 0.17F : 0.0F);
    if (color() != fill) {
        setColor(fill);
    }
    ColorView::paintEvent(event);
}

}  // namespace kzq
