#pragma once

#include "ui/action_button.h"

namespace kzq {

/// Erase, Import, Export and Cancel. Identifiers: "Erase (lower button)", "Import (lower button)",
/// "Export (lower button)", "Cancel"; others draw nothing.
class LowerButton : public ActionButton {
    Q_OBJECT

  public:
    using ActionButton::ActionButton;

    QString pictureName() const override;
    QString word() const override;
};

}  // namespace kzq
