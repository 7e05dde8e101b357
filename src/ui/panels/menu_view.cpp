#include "ui/panels/menu_view.h"

#include <QKeyEvent>

#include "ui/palette.h"
#include "ui/panels/menu.h"
#include "ui/panels/menu_item_view.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {
namespace {

Qt::KeyboardModifier modifierOf(int key) {
    return key == Qt::Key_Shift     ? Qt::ShiftModifier
           : key == Qt::Key_Control ? Qt::ControlModifier
                                    : Qt::NoModifier;
}

}  // namespace

MenuView::MenuView(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::ClickFocus);
}

void MenuView::setController(Menu* menu) {
    controller_ = menu;
}

Menu* MenuView::controller() const {
    return controller_;
}

void MenuView::setVisible(bool visible) {
    flagsChanged(Qt::NoModifier);
    if (!visible) {
        clearFocus();  // else Qt would pass the focus on as if Tab had been pressed
    }
    QWidget::setVisible(visible);
    if (visible) {
        raise();
    }
}

void MenuView::flagsChanged(Qt::KeyboardModifiers modifiers) {
    if (controller_) {
        controller_->setFirmwareTitle(modifiers);
    }
}

void MenuView::keyPressEvent(QKeyEvent* event) {
    // Qt reports a modifier pressed while already held, such as the other Shift, as released.
    flagsChanged(event->modifiers() | modifierOf(event->key()));
    QWidget::keyPressEvent(event);
}

void MenuView::keyReleaseEvent(QKeyEvent* event) {
    flagsChanged(event->modifiers());
    QWidget::keyReleaseEvent(event);
}

bool MenuView::focusNextPrevChild(bool /*next*/) {
    return true;
}

void MenuView::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawPicture(painter, QStringLiteral("Menu_panel"), painter.bounds());
    if (!controller_) {
        return;
    }
    for (const auto* item : controller_->items()) {
        if (item->hovered() && item->view() != nullptr) {
            const auto* const place = item->view()->parentWidget();
            painter.fill(QRectF(6, placeOf(*place).y() + 8, 2, 20), creamColor());
        }
    }
}

}  // namespace kzq
