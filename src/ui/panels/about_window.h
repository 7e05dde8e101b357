#pragma once

#include <QPointer>
#include <QWidget>

namespace kzq {

class About;

/// The window of the About panel: no frame, transparent outside its rounded plate. It closes as soon as
/// another window gets the keyboard focus.
class AboutWindow : public QWidget {
    Q_OBJECT

  public:
    explicit AboutWindow(QWidget* parent = nullptr);

    void setController(About* about);

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QPointer<About> controller_;
};

}  // namespace kzq
