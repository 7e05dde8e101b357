#pragma once

#include <QObject>
#include <functional>

namespace kzq {

/// Tells when something happens that closes the in-window menu: any window is moved, resized, minimised or
/// restored, closed, taken to another screen or left by the keyboard, a modal dialog comes or goes, a menu of
/// the menu bar opens or one of its entries acts. Main thread.
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
