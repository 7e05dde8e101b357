#pragma once

#include <QPointer>
#include <QWidget>

namespace kzq {

/// The ring around the focused control, if the focus came by keyboard. A page creates one with itself as
/// parent. A control has a ring when it has the property "focusRingRect" (QRect in its own
/// coordinates; null: its bounds), and rounds it by "focusRingRadius" (int, of the control itself; 6).
class FocusRing : public QWidget {
    Q_OBJECT

  public:
    explicit FocusRing(QWidget* page);

    /// Whether a focus that came so shows where it is.
    static bool byKeyboard(Qt::FocusReason reason);
    /// The control that has the ring, or null.
    QWidget* control() const { return control_; }
    /// Gives the ring to `control`, which has the focus or is about to get it; null removes it.
    void mark(QWidget* control);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void focusCame(QWidget& control, Qt::FocusReason reason);
    void follow();

    QPointer<QWidget> control_;
    QPointer<QWidget> left_;  ///< had the ring when its window lost the focus, or when the focus was taken
};

}  // namespace kzq
