#pragma once

#include "ui/action_button.h"

namespace kzq {

/// The small cross that takes a staged file off its row. Needs an identifier to be drawn, whichever.
class XButton : public ActionButton {
    Q_OBJECT

  public:
    using ActionButton::ActionButton;

    QString pictureName() const override;
};

}  // namespace kzq
