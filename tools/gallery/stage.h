#pragma once

#include <QString>
#include <QWidget>

#include "contact_sheet.h"

namespace kzq::gallery {

/// What of the user is with a control while it is shot.
enum class Hand { none, hovering, pressing, keyboard };

/// The control with some room round it, on the plate of the window. Its parent changes; it lives on.
Shot shootOnPlate(const QString& caption, QWidget& control, Hand hand = Hand::none);
/// The same in the tray; `ringed`, a part of the control, has the ring of the keyboard's focus.
Shot shootInTray(const QString& caption, QWidget& control, QWidget* ringed = nullptr);

/// A window, or a widget that stands by itself.
Shot shoot(const QString& caption, QWidget& window);

/// The pointer on `control`, which is a child of something; pressed or not. Nothing for the other hands.
void touch(QWidget& control, Hand hand);

}  // namespace kzq::gallery
