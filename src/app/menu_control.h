#pragma once

#include <QPoint>

#include "platform/fixed.h"

namespace kzq {

class MainWindow;
class MenuView;
class Teller;
struct AppEnvironment;
struct Panels;

/// The menu inside the main window: opens and closes it, moves its highlight with the keys, and does what its
/// items say. Without a menu nothing happens. Main thread.
class MenuControl : Fixed {
  public:
    /// All outlive it.
    MenuControl(const AppEnvironment& environment, MainWindow& window, Panels& panels, Teller& teller)
        : environment_(environment), window_(window), panels_(panels), teller_(teller) {}

    bool isOpen() const;
    /// `point` in coordinates of the main window.
    bool contains(QPoint point) const;
    void open() const;
    void close() const;
    void up() const;
    void down() const;
    /// Does what the highlighted item says; leaves the menu open.
    void go() const;

    void openMainWindow() const;
    void openAbout() const;
    void checkForSoftwareUpdates() const;
    void openFirmwareUpdater() const;
    void goToWebsite() const;

  private:
    MenuView* view() const;

    const AppEnvironment& environment_;
    MainWindow& window_;
    Panels& panels_;
    Teller& teller_;
};

}  // namespace kzq
