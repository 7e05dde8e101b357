#pragma once

#include "ui/key_button.h"

namespace kzq {

/// The shared base of the buttons that are pictures: `objectName` is the identifier that selects them. Mouse
/// behaviour is each class's own table, so a disabled button sees the mouse as well; `clicked` is the
/// action. Hovering follows the pointer whether or not the window is active.
class ImageButton : public KeyButton {
    Q_OBJECT

  public:
    using KeyButton::KeyButton;

    bool hovering() const { return hovering_; }
    /// Name of the picture for the present state; empty draws nothing.
    virtual QString pictureName() const = 0;

  protected:
    /// The left button comes down, moves while it is down, comes up. `inside` is the pointer's place.
    virtual void mouseDown();
    virtual void mouseDragged(bool inside);
    virtual void mouseUp() = 0;

    void setHovering(bool hovering);
    /// Emits `clicked`; false when the button was deleted by it.
    bool sendAction();

    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool hovering_ = false;
};

}  // namespace kzq
