#pragma once

#include <QApplication>
#include <QPoint>

#include "platform/fixed.h"

class QKeyEvent;
class QMouseEvent;
class QWindow;

namespace kzq {

class KeyGuard;

/// What the application asks its delegate about keys and mouse buttons.
class ApplicationDelegate : Fixed {
  public:
    virtual ~ApplicationDelegate() = default;

    virtual bool menuOpen() const = 0;
    /// `point` in coordinates of the main window.
    virtual bool pointInMenuBounds(QPoint point) const = 0;
    virtual bool isMainWindow(const QWindow& window) const = 0;
    virtual void menuUp() = 0;
    virtual void menuDown() = 0;
    virtual void menuGo() = 0;
    virtual void closeMenu() = 0;
};

/// Sees input before the windows do, for the in-window menu. While the menu is open, releases of its keys are
/// consumed here, and a mouse release elsewhere closes it and is passed on.
class Application : public QApplication {
    Q_OBJECT

  public:
    Application(int& count, char** arguments);

    /// Not owned. Without one, all keys and mouse events are discarded.
    void setDelegate(ApplicationDelegate* delegate) { delegate_ = delegate; }
    ApplicationDelegate* delegate() const { return delegate_; }

    /// Judges every key before anybody acts on it; null: keys are what the toolkit says. Not owned.
    void setKeyGuard(KeyGuard* keys) { keys_ = keys; }

    bool notify(QObject* receiver, QEvent* event) override;

  private:
    bool notifyKey(QWindow& window, QKeyEvent& event);
    bool notifyInput(QWindow& window, QEvent& event);
    bool filter(QWindow& window, QEvent& event);
    void mouseUp(QWindow& window, const QMouseEvent& event);
    bool keyUp(const QKeyEvent& event);

    ApplicationDelegate* delegate_ = nullptr;
    KeyGuard* keys_ = nullptr;
};

}  // namespace kzq
