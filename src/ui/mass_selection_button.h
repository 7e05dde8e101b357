#pragma once

#include "ui/image_button.h"

namespace kzq {

/// All and None. Identifiers: "Select_All", "Deselect_All". A release inside acts, even if the button is
/// disabled.
class MassSelectionButton : public ImageButton {
    Q_OBJECT

  public:
    using ImageButton::ImageButton;

    QString pictureName() const override;
    QString word() const override;

  protected:
    void mouseDragged(bool inside) override;
    void mouseUp() override;
};

}  // namespace kzq
