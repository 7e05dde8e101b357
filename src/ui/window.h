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

}  // namespace kzq
