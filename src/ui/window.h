#pragma once

#include <QWidget>

namespace kzq {

/// The main window. Closing it quits: once it is closed, the application is asked to quit.
class Window : public QWidget {
    Q_OBJECT

  public:
    using QWidget::QWidget;

  protected:
    void closeEvent(QCloseEvent* event) override;
};

/// Moves a window that is shown as far as needed for all of it, and its frame, to be seen; of one that is
/// larger than the screen, the top left. `size` is the one that it has or is about to get.
void keepOnScreen(QWidget& window, QSize size);

}  // namespace kzq
