#pragma once

#include <QAbstractButton>

namespace kzq {

/// Shared by all painted buttons: focus by Tab only, and Space or Return as a click. Space clicks on release,
/// Return on press; held keys click once.
class KeyButton : public QAbstractButton {
    Q_OBJECT
    Q_PROPERTY(QRect focusRingRect READ focusRingRect)

  public:
    explicit KeyButton(QWidget* parent = nullptr);

    /// What the focus ring surrounds, in own coordinates.
    virtual QRect focusRingRect() const { return rect(); }
    /// Follows the pointer, whether or not the window is active.
    bool hovering() const { return hovering_; }

  protected:
    virtual void setHovering(bool hovering);

    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    bool hovering_ = false;
};

}  // namespace kzq
