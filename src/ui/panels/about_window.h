#pragma once

#include <QPointer>
#include <QWidget>

#include "ui/panels/product.h"

class QLabel;

namespace kzq {

class About;
class AboutBacking;
class LinkButton;

/// The window of the About panel: no frame, transparent outside its rounded plate. It closes as soon as
/// another window gets the keyboard focus. Without its panel, it is a picture that does not react.
class AboutWindow : public QWidget {
    Q_OBJECT

  public:
    explicit AboutWindow(const Product& product, QWidget* parent = nullptr);

    void setController(About* about);

    AboutBacking& backing() const { return *backing_; }
    QLabel& linkLabel() const { return *linkLabel_; }
    LinkButton& link() const { return *link_; }

    /// Centres it on the screen with the pointer.
    void centre();
    /// Shows it and gives it the keyboard focus.
    void comeForward();
    /// Marks the content for redrawing: it shows the version of the pedal.
    void setNeedsDisplay();

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    QPointer<About> controller_;
    AboutBacking* backing_ = nullptr;
    QLabel* linkLabel_ = nullptr;
    LinkButton* link_ = nullptr;
};

}  // namespace kzq
