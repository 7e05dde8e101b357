#include "ui/focus_ring.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPainter>
#include <cmath>

#include "ui/palette.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr int thickness = 2;
constexpr int distance = 2;  // from the control
constexpr int usualRadius = 6;

/// In pixels of the screen.
int stroke() {
    return static_cast<int>(std::ceil(thickness * Scale::ofProgram().size()));
}

}  // namespace

FocusRing::FocusRing(QWidget* page) : QWidget(page) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    Scale::leaveAlone(*this);
    hide();
    connect(&Scale::ofProgram(), &Scale::changed, this, &FocusRing::follow);
    qApp->installEventFilter(this);
}

bool FocusRing::byKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

void FocusRing::mark(QWidget* control) {
    control_ = control != nullptr && control->property("focusRingRect").isValid() ? control : nullptr;
    left_ = nullptr;
    follow();
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (type == QEvent::FocusIn && watched->isWidgetType()) {
        auto& widget = static_cast<QWidget&>(*watched);
        if (parentWidget()->isAncestorOf(&widget)) {
            focusCame(widget, static_cast<QFocusEvent*>(event)->reason());
        }
    } else if (control_ != nullptr && watched == control_) {
        if (type == QEvent::FocusOut) {
            auto* left = control_.data();
            mark(nullptr);
            left_ = left;
        } else if (type == QEvent::Move || type == QEvent::Resize || type == QEvent::Show ||
                   type == QEvent::Hide || type == QEvent::DynamicPropertyChange) {
            follow();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FocusRing::focusCame(QWidget& control, Qt::FocusReason reason) {
    // a control that had the ring when its window lost the focus gets it back with the focus
    const auto back = reason != Qt::MouseFocusReason && (&control == left_ || &control == control_);
    // a widget that the program focuses temporarily, such as the shield, returns the focus
    const auto left = reason == Qt::OtherFocusReason ? left_ : nullptr;
    mark(byKeyboard(reason) || back ? &control : nullptr);
    if (control_ == nullptr) {
        left_ = left;
    }
}

void FocusRing::follow() {
    if (control_ == nullptr || !control_->isVisibleTo(parentWidget())) {
        hide();
        return;
    }
    auto ring = control_->property("focusRingRect").toRect();
    if (ring.isNull()) {
        ring = control_->rect();
    }
    ring.moveTopLeft(control_->mapTo(parentWidget(), ring.topLeft()));
    const int reach = onScreen(distance) + stroke();
    setGeometry(ring.adjusted(-reach, -reach, reach, reach));
    raise();
    show();
}

void FocusRing::paintEvent(QPaintEvent* /*event*/) {
    if (control_ == nullptr) {
        return;
    }
    const auto given = control_->property("focusRingRadius");
    const auto radius =
        onScreen((given.isValid() ? given.toInt() : usualRadius) + distance + thickness / 2.0);
    const auto inset = stroke() / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(KZQLinkHover(), stroke()));
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}

}  // namespace kzq
