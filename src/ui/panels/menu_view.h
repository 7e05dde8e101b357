#pragma once

#include <QPointer>
#include <QWidget>

namespace kzq {

class Menu;

/// The root view of the menu, 224 × 208. It has the keyboard focus while the menu is open, so that it sees
/// presses and releases of the modifier keys; it consumes no other key, and Tab stays in it.
class MenuView : public QWidget {
    Q_OBJECT

  public:
    explicit MenuView(QWidget* parent = nullptr);

    void setController(Menu* menu);
    Menu* controller() const;

    /// Showing and hiding (setHidden, show, hide) both bring the firmware entry's own title back first.
    /// Hiding releases the keyboard focus.
    void setVisible(bool visible) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void flagsChanged(Qt::KeyboardModifiers modifiers);

    QPointer<Menu> controller_;
};

}  // namespace kzq
