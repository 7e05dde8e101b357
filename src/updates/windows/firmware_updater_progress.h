#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "platform/executor.h"
#include "platform/fixed.h"

class QWidget;

namespace kzq {

class LampBar;
class LineLabel;
class UpdatePanel;

/// The window with a bar that fills while firmware is installed: in 13 seconds, the usual length of a flash,
/// deliberately not tied to the real one. An earlier `end` fills it at once; a second after it is full the
/// window closes. During a longer flash only the shield and the status line of the main window remain. Under
/// the bar stands what is really under way.
///
/// The user cannot close it: a flash cannot be cancelled, so the window has no close button.
class FirmwareUpdaterProgress : Fixed {
  public:
    /// A controller with its window loaded and not yet shown; null if that fails. The executor outlives it.
    /// Main thread.
    static std::unique_ptr<FirmwareUpdaterProgress> progress(Executor& executor);
    /// Main thread.
    ~FirmwareUpdaterProgress();

    /// Shows the window, centred, and starts the bar at 0. A bar that still runs is abandoned. Main thread.
    void begin();
    /// Any thread.
    void end();
    /// `end` for a thread that may outlive this object: it does nothing once this is destroyed. Any thread.
    std::function<void()> ender() const;

    /// What is under way, "Sending image, 61 %", as the third of four steps; number 0: nothing is known.
    /// `said` is the same for a screen reader, which hears every change of it. Main thread.
    void setStep(int number, int count, const QString& shown, const QString& said);

    /// Whether `begin` was called and `end` was not. Any thread.
    bool animate() const;
    /// 0 to 1. Main thread.
    LampBar& slider() { return *slider_; }
    QWidget& window();

  private:
    struct Animation;

    explicit FirmwareUpdaterProgress(Executor& executor);
    bool loadWindow();
    void fit();

    Executor& executor_;
    std::unique_ptr<UpdatePanel> window_;
    LampBar* slider_ = nullptr;  // owned by the window, like the next three
    LineLabel* caption_ = nullptr;
    LineLabel* step_ = nullptr;
    LineLabel* number_ = nullptr;
    std::shared_ptr<Animation> animation_;
};

}  // namespace kzq
