#include "ui/panels/pick_list.h"

#include <QApplication>
#include <QKeyEvent>

#include "ui/palette.h"
#include "ui/panels/accessible_panels.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

PickList::PickList(QWidget* panel) : QWidget(panel) {
    installAccessiblePanels();
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true);
    hide();
}

void PickList::openAt(const QRect& frame) {
    before_ = window()->focusWidget();
    place(*this, frame);
    show();
    raise();
    setFocus(Qt::PopupFocusReason);
    qApp->installEventFilter(this);
}

void PickList::close() {
    hide();
}

/// It does not come back with a panel that was closed around it.
void PickList::hideEvent(QHideEvent* /*event*/) {
    qApp->removeEventFilter(this);
    hide();
    if (auto* const before = before_.data()) {
        before_.clear();
        before->setFocus(Qt::PopupFocusReason);
    }
}

bool PickList::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && isVisible() && watched->isWidgetType() &&
        watched != this) {
        close();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

bool PickList::event(QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        event->accept();  // or the panel would get it, as one outside
        return true;
    }
    return QWidget::event(event);
}

void PickList::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            chooseMarked();
            break;
        case Qt::Key_Escape:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            close();
            break;
        default:
            walk(event->key());
    }
}

void PickList::paintGround(ScaledPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(outlineColor());
    painter.drawRoundedRect(painter.bounds(), 8, 8);
    painter.setBrush(panelColor());
    painter.drawRoundedRect(painter.bounds().adjusted(2, 2, -2, -2), 6, 6);
}

void PickList::paintMark(ScaledPainter& painter, const QRect& entry) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 43));
    painter.drawRoundedRect(entry, 4, 4);
}

}  // namespace kzq
