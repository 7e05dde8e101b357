#pragma once

#include <QPointer>
#include <QString>

#include "ui/key_button.h"

namespace kzq {

class Slot;

/// What a row has in place of its number while the pointer or the focus is in it, or while it plays: a press
/// plays the loop, or stops it. There for a screen reader even while the number is shown. The focus reaches
/// it by the arrow keys only.
class SlotRing : public KeyButton {
    Q_OBJECT

  public:
    explicit SlotRing(QWidget* parent = nullptr);

    void setController(Slot* controller);

    /// For the present state; empty while the number is shown.
    QString pictureName() const;
    QRect focusRingRect() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    const QRect picture_{-2, 0, 24, 24};  ///< its circle lies inside the widget
    QPointer<QObject> controller_;        // a Slot
};

}  // namespace kzq
