#pragma once

#include "platform/fixed.h"
#include "ui/key_button.h"

namespace kzq {

class LinkButton;

class LinkButtonDelegate : Fixed {
  public:
    virtual ~LinkButtonDelegate() = default;

    virtual void linkButtonHoverStateChanged(LinkButton& button, bool hovered) = 0;
};

/// A transparent button over the label of a link: shows the hand cursor, and notifies the delegate of
/// hovering so that it can recolour the label. `clicked` is the action.
class LinkButton : public KeyButton {
    Q_OBJECT

  public:
    using KeyButton::KeyButton;

    LinkButtonDelegate* delegate() const { return delegate_; }
    /// Not owned: the delegate owns the button, or removes itself with null.
    void setDelegate(LinkButtonDelegate* delegate) { delegate_ = delegate; }

  protected:
    void setHovering(bool hovering) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    LinkButtonDelegate* delegate_ = nullptr;
};

}  // namespace kzq
