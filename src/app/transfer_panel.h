#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "platform/fixed.h"

namespace kzq {

class MainWindow;
class MenuControl;
struct Panels;

/// The progress panel as the transfers use it; without one nothing happens. Main thread.
class TransferPanel : Fixed {
  public:
    /// All outlive it.
    TransferPanel(MainWindow& window, MenuControl& menu, Panels& panels)
        : window_(window), menu_(menu), panels_(panels) {}

    /// Shows it over the main window for a transfer of `total` bytes of so many loops; not for 0 bytes.
    /// Context 0 is an import, 1 an export.
    void open(std::uint64_t total, std::size_t loops, std::int32_t context);
    /// The same in other words.
    void open(std::uint64_t total, const std::string& title, const std::string& subtitle);
    void setPercent(double fraction) const;
    /// The same as a function.
    std::function<void(double fraction)> bar() {
        return [this](double fraction) { setPercent(fraction); };
    }
    /// Full, and then closed.
    void close() const;

  private:
    MainWindow& window_;
    MenuControl& menu_;
    Panels& panels_;
};

}  // namespace kzq
