#include "slots/row_touch.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include "slots/slot.h"
#include "ui/focus_ring.h"
#include "ui/letter_keys.h"

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
                return pressed(static_cast<const QKeyEvent&>(*event));
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

    bool pressed(const QKeyEvent& event) {
        return isP(event) && !event.isAutoRepeat() && played(event.modifiers());
    }

    bool played(Qt::KeyboardModifiers modifiers) {
        if (modifiers == Qt::NoModifier) {
            row_.playClicked();
        } else if (modifiers == Qt::ShiftModifier) {
            row_.compareClicked();
        }
        return modifiers == Qt::NoModifier || modifiers == Qt::ShiftModifier;
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
