#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/time_left.h"
#include "app/transfer_run.h"
#include "platform/fixed.h"

namespace kzq {

class MainWindow;
class MenuControl;
struct AppEnvironment;
struct Panels;

/// The progress of a transfer as the flows show it: the panel, with the time that is left, and the program's
/// icon. Main thread.
class TransferPanel : Fixed {
  public:
    /// All outlive it.
    TransferPanel(const AppEnvironment& environment, MainWindow& window, MenuControl& menu, Panels& panels)
        : environment_(environment), window_(window), menu_(menu), panels_(panels) {}

    /// Shows it over the main window for a transfer of `total` bytes of so many loops; not for 0 bytes.
    /// Context 0 is an import, 1 an export.
    void open(std::uint64_t total, std::size_t loops, std::int32_t context);
    /// The same in other words.
    void open(std::uint64_t total, const std::string& title, const std::string& subtitle);
    void setPercent(double fraction);
    /// Brings the progress of the transfer that is shown here; nothing any more once this was closed. `post`
    /// has a task done on the main thread.
    std::shared_ptr<TransferRun> follow(std::function<void(Executor::Task)> post, std::uint64_t total);
    /// Full, and then closed.
    void close();
    /// On the icon alone: what shows its progress elsewhere in the window. No effect while this is open.
    void showOnIcon(std::optional<double> fraction) const;

  private:
    void showTimeLeft();
    void lookAgain();
    void put(std::optional<double> fraction) const;

    const AppEnvironment& environment_;
    MainWindow& window_;
    MenuControl& menu_;
    Panels& panels_;
    std::shared_ptr<TimeLeft> timeLeft_;  ///< of the transfer that is shown
};

}  // namespace kzq
