#pragma once

#include "ui/button_face.h"
#include "ui/key_button.h"

namespace kzq {

/// A button of our own panels with its label as live text: the brown face of alerts, 96 x 36, the cream
/// face of a panel's default, 112 x 36, or the green one of what goes to the pedal and the blue one of what
/// leaves it, with their chevrons, 136 x 40; wider for a long label. The label is `text()`.
class AlertButton : public KeyButton {
    Q_OBJECT

  public:
    enum class Face { brown, cream, green, blue };

    explicit AlertButton(QWidget* parent = nullptr) : AlertButton(Face::brown, parent) {}
    explicit AlertButton(Face face, QWidget* parent = nullptr);

    void setFace(Face face);
    QSize sizeHint() const override;
    /// With its word in full size, at 100 %.
    int fullWidth() const;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    ButtonFace painted() const;
    QString shownWord() const;
    bool hasChevrons() const;

    Face face_;
};

}  // namespace kzq
