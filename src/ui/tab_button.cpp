#include "ui/tab_button.h"

#include <QAccessible>

namespace kzq {

void TabButton::setPictures(const QString& name) {
    pictures_ = name;
    follow();
}

void TabButton::setSelected(bool selected) {
    if (selected_ == selected) {
        return;
    }
    selected_ = selected;
    follow();
    QAccessibleEvent changed(this, selected ? QAccessible::SelectionAdd : QAccessible::SelectionRemove);
    QAccessible::updateAccessibility(&changed);
}

void TabButton::follow() {
    setPicture(pictures_ + QString::fromLatin1(selected_ ? "_On" : "_Off"));
}

}  // namespace kzq
