#pragma once

#include "ui/key_button.h"

namespace kzq {

/// A button drawn as one picture, which its owner changes: the tabs, the menu button.
class PictureButton : public KeyButton {
    Q_OBJECT

  public:
    using KeyButton::KeyButton;

    const QString& picture() const { return picture_; }
    void setPicture(const QString& name);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QString picture_;
};

}  // namespace kzq
