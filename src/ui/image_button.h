#pragma once

#include "ui/key_button.h"

namespace kzq {

/// The shared base of the buttons that are pictures: `objectName` is the identifier that selects them. Each
/// class has its own table of mouse behaviour, so even a disabled button sees the mouse; `clicked` is the
/// action.
class ImageButton : public KeyButton {
    Q_OBJECT

  public:
    using KeyButton::KeyButton;

    /// Name of the picture for the present state; empty draws nothing.
    virtual QString pictureName() const = 0;
    /// The word in that picture, in the user's language; empty if there is none.
    virtual QString word() const { return {}; }

  protected:
    /// The left button is pressed, dragged, released. `inside`: whether the pointer is inside.
    virtual void mouseDown();
    virtual void mouseDragged(bool inside);
    virtual void mouseUp() = 0;

    /// Emits `clicked`; false if that deleted the button.
    bool sendAction();

    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace kzq
