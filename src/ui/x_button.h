#pragma once

#include "ui/action_button.h"

namespace kzq {

/// The small cross that removes a staged file from its row. Needs any identifier to be drawn.
class XButton : public ActionButton {
    Q_OBJECT

  public:
    using ActionButton::ActionButton;

    QString pictureName() const override;
};

}  // namespace kzq
