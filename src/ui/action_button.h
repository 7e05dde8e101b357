#pragma once

#include "ui/image_button.h"

namespace kzq {

/// The mouse table of LowerButton and XButton: a release acts only while enabled and hovering, and a drag
/// out of the button and back ends and begins hovering.
class ActionButton : public ImageButton {
    Q_OBJECT

  public:
    using ImageButton::ImageButton;

  protected:
    void mouseDragged(bool inside) override;
    void mouseUp() override;
};

}  // namespace kzq
