#pragma once

#include <QObject>
#include <cstdint>

class QKeyEvent;

namespace kzq {

struct AppParts;

/// Whose the keys are that several could use: P, Del, Ctrl+Z and Escape. They are the menu bar's while it has
/// the keyboard; else the name's that is edited; without one, the menu's that is open; then those of the
/// loops that are being dragged; and only then the rows', the bar's as shortcuts, and the sound's. Main
/// thread.
class KeyOrder : public QObject {
    Q_OBJECT

  public:
    /// `parts` outlives it.
    explicit KeyOrder(AppParts& parts) : parts_(parts) {}

    /// From now on, in all windows.
    void watch();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Owner : std::uint8_t { name, menu, drag, rest };
    Owner owner() const;
    bool pressed(const QObject& at, QKeyEvent& key);

    AppParts& parts_;
    bool nameHasEscape_ = false;  ///< its editor saw the last press of it
};

}  // namespace kzq
