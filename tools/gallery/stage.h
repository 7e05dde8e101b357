#pragma once

#include <QString>
#include <QWidget>

#include "contact_sheet.h"

namespace kzq::gallery {

/// How the user touches a control while its picture is taken.
enum class Hand { none, hovering, pressing, keyboard };

/// The control with some space around it, on the plate of the window. It gets a new parent and survives.
Shot shootOnPlate(const QString& caption, QWidget& control, Hand hand = Hand::none);
/// The same in the tray; `ringed`, a part of the control, has the keyboard focus ring.
Shot shootInTray(const QString& caption, QWidget& control, QWidget* ringed = nullptr);

/// A window, or a widget on its own.
Shot shoot(const QString& caption, QWidget& window);

/// Puts the pointer on `control`, which must have a parent, pressed or not. No effect for the other hands.
void touch(QWidget& control, Hand hand);

}  // namespace kzq::gallery
