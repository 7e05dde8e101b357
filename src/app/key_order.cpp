#include "app/key_order.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>

#include "app/app_parts.h"
#include "app/main_window.h"
#include "ui/letter_keys.h"

namespace kzq {

namespace {

bool isWanted(const QKeyEvent& key) {
    if (isP(key)) {  // with Shift it compares
        return (key.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier)) == Qt::NoModifier;
    }
    switch (key.key()) {
        case Qt::Key_Z:
            return key.modifiers() == Qt::ControlModifier;
        case Qt::Key_Delete:
        case Qt::Key_Escape:
            return true;
        default:
            return false;
    }
}

/// "Select None" would throw the name away that is typed.
bool selectsNone(const QKeyEvent& key) {
    return key.key() == Qt::Key_A && key.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier);
}

}  // namespace

void KeyOrder::watch() {
    qApp->installEventFilter(this);
}

KeyOrder::Owner KeyOrder::owner() const {
    return parts_.fieldEditor && parts_.fieldEditor->field() != nullptr ? Owner::name
           : parts_.menu.isOpen()                                       ? Owner::menu
           : parts_.carryOut.underWay()                                 ? Owner::drag
                                                                        : Owner::rest;
}

bool KeyOrder::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    if (!watched->isWidgetType()) {
        return false;
    }
    if (type == QEvent::KeyPress || type == QEvent::ShortcutOverride) {
        auto& key = static_cast<QKeyEvent&>(*event);
        if (type == QEvent::ShortcutOverride && selectsNone(key) && owner() == Owner::name) {
            key.accept();
            return true;
        }
        return isWanted(key) && pressed(*watched, key);
    }
    // A menu or an alert closes by the press, and the release comes to what had the keyboard before.
    return type == QEvent::KeyRelease && static_cast<QKeyEvent&>(*event).key() == Qt::Key_Escape &&
           watched == parts_.fieldEditor.get() && !nameHasEscape_;
}

/// Whether it goes no further.
bool KeyOrder::pressed(const QObject& at, QKeyEvent& key) {
    const bool escape = key.key() == Qt::Key_Escape;
    if (escape) {
        nameHasEscape_ = &at == parts_.fieldEditor.get();
    }
    if (QApplication::activePopupWidget() != nullptr) {
        return false;
    }
    if (qobject_cast<const QMenuBar*>(&at) != nullptr) {
        if (!escape) {
            key.accept();
        }
        return !escape;
    }
    switch (owner()) {
        case Owner::name:
            return false;
        case Owner::rest:
            // which no control had a use for
            if (escape && key.type() == QEvent::KeyPress && !key.isAutoRepeat() &&
                (&at == &parts_.window || &at == parts_.window.contentView())) {
                parts_.listening.stop();
            }
            return false;
        case Owner::menu:
            if (escape) {  // it acts when it is let go, before any window sees that
                return false;
            }
            break;
        case Owner::drag:
            if (escape && key.type() == QEvent::KeyPress) {
                parts_.carryOut.giveUp();
            }
            break;
    }
    key.accept();
    return true;
}

}  // namespace kzq
