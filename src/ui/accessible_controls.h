#pragma once

#include <QAccessible>
#include <QStringList>
#include <QWidget>

namespace kzq {

/// Makes assistive technology see the window's own controls as what they are: buttons, check boxes, page
/// tabs, the meter. Those under a shield are disabled for it, and the window has the shield as its only
/// child. Once is enough; main thread.
void installAccessibleControls();

/// Property of a widget that has the focus policy "none", but takes the focus from the arrow keys.
inline constexpr auto reachedByArrows = "reachedByArrows";
bool takesFocus(const QWidget& widget);

/// A press of `button` opens `list`; null: one of several that open the same.
void opens(QWidget& button, QWidget* list);

/// For a factory: an interface that a shield puts out of reach.
QAccessibleInterface* coverable(QWidget& widget, QAccessible::Role role);
/// What a shield leaves of the state of a widget, and of its actions.
QAccessible::State seenThrough(const QWidget& widget, QAccessible::State state);
QStringList seenThrough(const QWidget& widget, const QStringList& actions);

}  // namespace kzq
