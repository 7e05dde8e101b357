#pragma once

#include "ui/key_button.h"

namespace kzq {

/// The leader of a yellow row as one key while it plays: A is the file, B the loop that it would replace. On
/// while B plays; a click does not turn it by itself. The focus reaches it by the arrow keys only.
class SlotCompare : public KeyButton {
    Q_OBJECT

  public:
    explicit SlotCompare(QWidget* parent = nullptr);

    void setOther(bool other);
    QString pictureName() const;
    QRect focusRingRect() const override;

  Q_SIGNALS:
    /// Clicked, in whatever way.
    void action();

  protected:
    void nextCheckState() override {}
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace kzq
