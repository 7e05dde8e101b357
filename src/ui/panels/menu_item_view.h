#pragma once

#include <QPointer>

#include "ui/color_view.h"

namespace kzq {

class MenuItem;

/// Draws the highlight of an entry and handles the pointer for it.
class MenuItemView : public ColorView {
    Q_OBJECT

  public:
    explicit MenuItemView(QWidget* parent = nullptr);

    void setController(MenuItem* item);
    MenuItem* controller() const;

    /// Notifies the delegate that the entry was clicked, as a mouse release inside does.
    void click();

  protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    QPointer<MenuItem> controller_;
};

}  // namespace kzq
