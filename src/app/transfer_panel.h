#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/fixed.h"

namespace kzq {

class MainWindow;
struct Panels;

/// The progress panel as the transfers use it; without one nothing happens. Main thread.
class TransferPanel : Fixed {
  public:
    /// Both outlive it.
    TransferPanel(MainWindow& window, Panels& panels) : window_(window), panels_(panels) {}

    /// Shows it over the main window for a transfer of `total` bytes of so many loops. Context 0 is an
    /// import, 1 an export.
    void open(std::uint64_t total, std::size_t loops, std::int32_t context);
    void setPercent(double fraction);
    /// Full, and then closed.
    void close();

  private:
    MainWindow& window_;
    Panels& panels_;
};

}  // namespace kzq
