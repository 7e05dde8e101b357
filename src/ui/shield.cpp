#include "ui/shield.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "ui/palette.h"
#include "ui/qt_words.h"
#include "ui/scale.h"

namespace kzq {

namespace {

constexpr double strongestWash = 0.4;  // the rows that turn "complete" stay readable

/// Quitting, as closing the window does, and pulling the cable of a simulated pedal.
bool staysPossible(const QKeyEvent& event) {
    return (event.key() == Qt::Key_Q || event.key() == Qt::Key_P) && event.modifiers() == Qt::ControlModifier;
}

}  // namespace

Shield::Shield(QWidget* parent, double wash)
    : QWidget(parent), before_(parent->window()->focusWidget()), wash_(std::clamp(wash, 0.0, strongestWash)) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(toQt(words("The 7306 is busy")));  // read out by a screen reader
    setMouseTracking(true);
    setAcceptDrops(true);
    Scale::leaveAlone(*this);
    setGeometry(parent->rect());
    parent->installEventFilter(this);
    show();
    raise();
    setFocus(Qt::OtherFocusReason);
}

Shield::~Shield() {
    const auto* const focused = window()->focusWidget();
    if (before_ != nullptr && (focused == this || isAncestorOf(focused))) {
        before_->setFocus(Qt::OtherFocusReason);
    }
}

Shield* Shield::over(const QWidget& parent) {
    return parent.findChild<Shield*>(QString(), Qt::FindDirectChildrenOnly);
}

bool Shield::covers(const QWidget& widget) {
    const auto* const window = widget.window();
    const auto* const shield = &widget != window ? over(*window) : nullptr;
    return shield != nullptr && shield != &widget && !shield->isAncestorOf(&widget);
}

bool Shield::event(QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::ContextMenu:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            event->accept();
            return true;
        case QEvent::ShortcutOverride:  // accepted: the shortcut does not act
            event->setAccepted(!staysPossible(*static_cast<QKeyEvent*>(event)));
            return true;
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:  // accepted, so that it goes to no other widget, and ignored
            static_cast<QDropEvent*>(event)->setDropAction(Qt::IgnoreAction);
            event->accept();
            return true;
        default:
            return QWidget::event(event);
    }
}

bool Shield::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    } else if (event->type() == QEvent::ChildAdded) {
        raise();
    }
    return QWidget::eventFilter(watched, event);
}

bool Shield::focusNextPrevChild(bool /*next*/) {
    return true;
}

void Shield::paintEvent(QPaintEvent* /*event*/) {
    auto color = trayColor();
    color.setAlphaF(static_cast<float>(wash_));
    QPainter(this).fillRect(rect(), color);
}

}  // namespace kzq
