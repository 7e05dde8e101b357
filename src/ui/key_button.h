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

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace kzq
