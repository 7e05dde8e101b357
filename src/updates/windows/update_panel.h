#pragma once

#include <QPointer>
#include <QWidget>

#include "ui/alert_button.h"
#include "ui/focus_ring.h"

namespace kzq {

/// The background of the update windows: a brown plate of fixed size that floats over other windows. Return
/// presses its default button unless the focused control handles the key; the default has the focus and the
/// ring when the window appears. Closing it never quits the program.
class UpdatePanel : public QWidget {
    Q_OBJECT

  public:
    enum class CloseButton { shown, none };

    explicit UpdatePanel(CloseButton closeButton = CloseButton::shown);

    /// One of its own controls; null for none.
    void setDefaultButton(AlertButton* button);
    /// Centres the window on the screen with the pointer.
    void centre();
    /// Shows the window in front, with the keyboard focus; in the middle again if its size is another now.
    void present();

  Q_SIGNALS:
    /// Escape.
    void escape();
    /// The window is about to close; not called for `hide`.
    void closing();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void focusDefault();

    double centredAt_ = 0;  ///< the size at which it was centred: see Scale
    QPointer<AlertButton> defaultButton_;
    FocusRing* ring_;  // a child
};

}  // namespace kzq
