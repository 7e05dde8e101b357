#include "slots/row_touch.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include "slots/slot.h"
#include "ui/focus_ring.h"

namespace kzq {

namespace {

class RowTouch : public QObject {
  public:
    explicit RowTouch(Slot& row) : QObject(&row), row_(row) {
        for (QWidget* const part : std::initializer_list<QWidget*>{row.view(), row.ring(), row.button(),
                                                                   row.x(), row.field(), row.compare()}) {
            part->installEventFilter(this);
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        switch (event->type()) {
            case QEvent::Enter:
            case QEvent::Leave:
                if (watched != row_.view()) {
                    return false;
                }
                pointer_ = event->type() == QEvent::Enter;
                break;
            case QEvent::FocusIn:
                focusCame(static_cast<const QFocusEvent*>(event)->reason());
                break;
            case QEvent::FocusOut:
                focus_ = false;
                break;
            case QEvent::KeyPress:
                return pressed(watched, static_cast<const QKeyEvent&>(*event));
            default:
                return false;
        }
        row_.setTouched(pointer_ || focus_);
        return false;
    }

  private:
    /// A window that comes forward again brings the focus back as it was.
    void focusCame(Qt::FocusReason reason) {
        if (reason == Qt::MouseFocusReason || FocusRing::byKeyboard(reason)) {
            byKeyboard_ = reason != Qt::MouseFocusReason;
        }
        focus_ = byKeyboard_;
    }

    bool pressed(const QObject* at, const QKeyEvent& event) {
        switch (event.key()) {
            case Qt::Key_P:
                return !event.isAutoRepeat() && played(event.modifiers());
            case Qt::Key_Left:
                return (at == row_.button() && focusOn(*row_.ring())) || back(at);
            case Qt::Key_Right:
                return (at == row_.x() && focusOn(*row_.compare())) || forth(at);
            case Qt::Key_Backtab:
                return back(at);
            case Qt::Key_Tab:
                return forth(at);
            default:
                return false;
        }
    }

    bool played(Qt::KeyboardModifiers modifiers) {
        if (modifiers == Qt::NoModifier) {
            row_.playClicked();
        } else if (modifiers == Qt::ShiftModifier) {
            row_.compareClicked();
        }
        return modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier;
    }

    static bool focusOn(QWidget& part) {
        if (part.isHidden()) {
            return false;
        }
        part.setFocus(Qt::TabFocusReason);
        return true;
    }

    // Ring and A/B are no stops of Tab, so from them it goes on as from the button and the x. Whether it has
    // arrived already:

    bool back(const QObject* at) {
        if (at == row_.ring()) {
            row_.button()->setFocus(Qt::BacktabFocusReason);
            return false;
        }
        return at == row_.compare() && focusOn(*row_.x());
    }

    bool forth(const QObject* at) {
        if (at == row_.compare()) {
            row_.x()->setFocus(Qt::TabFocusReason);
            return false;
        }
        return at == row_.ring() && focusOn(*row_.button());
    }

    Slot& row_;
    bool pointer_ = false;
    bool focus_ = false;
    bool byKeyboard_ = false;  ///< the last focus that came by key or pointer
};

}  // namespace

void watchTouch(Slot& row) {
    new RowTouch(row);  // NOLINT(cppcoreguidelines-owning-memory): the row's child
}

}  // namespace kzq
