#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QProgressBar>
#include <QTextEdit>

namespace kzq::test {

/// The widget of that name in `window`, which has to be there.
template <typename Kind>
Kind& control(QWidget& window, const char* name) {
    auto* const found = window.findChild<Kind*>(name);
    EXPECT_NE(found, nullptr) << name;
    return *found;
}

/// Whether every control that is shown tells assistive technology what it is called and what it is.
inline void expectNamedControls(QWidget& window) {
    for (auto* const widget : window.findChildren<QWidget*>()) {
        const bool button = qobject_cast<QAbstractButton*>(widget) != nullptr;
        const bool bar = qobject_cast<QProgressBar*>(widget) != nullptr;
        const bool notes = qobject_cast<QTextEdit*>(widget) != nullptr;
        if (!widget->isVisibleTo(&window) || (!button && !bar && !notes)) {
            continue;
        }
        auto* const told = QAccessible::queryAccessibleInterface(widget);
        ASSERT_NE(told, nullptr);
        EXPECT_NE(told->text(QAccessible::Name), QString()) << widget->objectName().toStdString();
        const auto role = button ? QAccessible::PushButton
                          : bar  ? QAccessible::ProgressBar
                                 : QAccessible::EditableText;
        EXPECT_EQ(told->role(), role) << widget->objectName().toStdString();
    }
}

}  // namespace kzq::test
