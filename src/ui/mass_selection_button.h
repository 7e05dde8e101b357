#pragma once

#include "ui/image_button.h"

namespace kzq {

/// All and None. Identifiers: "Select_All", "Deselect_All". A release acts if the pointer entered before,
/// even if the button is disabled or the pointer was dragged out.
class MassSelectionButton : public ImageButton {
    Q_OBJECT

  public:
    using ImageButton::ImageButton;

    QString pictureName() const override;

  protected:
    void mouseUp() override;
};

}  // namespace kzq
