#pragma once

#include <QObject>
#include <functional>

namespace kzq {

/// Reports events that close the in-window menu: a window is moved, resized, minimised, restored, closed,
/// moved to another screen or loses the keyboard focus, a modal dialog opens or closes, a menu of the menu
/// bar opens or one of its entries is chosen. Main thread.
class MenuClosing : public QObject {
    Q_OBJECT

  public:
    /// From now on, for as long as this lives.
    explicit MenuClosing(std::function<void()> close);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void()> close_;
};

}  // namespace kzq
