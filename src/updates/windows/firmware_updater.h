#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "platform/fixed.h"
#include "updates/firmware_updates.h"
#include "updates/windows/firmware_updater_progress.h"

class QLabel;
class QWidget;

namespace kzq {

class AlertButton;
class NotesView;
class UpdatePanel;

class FirmwareUpdaterDelegate : Fixed {
  public:
    virtual ~FirmwareUpdaterDelegate() = default;

    /// The user accepts the offer: install `update`. Main thread.
    virtual void installFirmware() = 0;
};

/// The window that offers newer firmware, with the checks that find it. Main thread, unless noted otherwise;
/// other threads that may outlive it keep `updates` instead of it.
class FirmwareUpdater : Fixed {
  public:
    /// An updater ready for use, its window loaded and not yet shown; its first check comes 15 seconds later.
    /// Null if the window or the flashing window cannot be created. The functions that show texts in
    /// `environment` are replaced.
    static std::unique_ptr<FirmwareUpdater> updater(FirmwareEnvironment environment);
    /// Ends running fetches.
    ~FirmwareUpdater();

    /// Not owned: null, or something that outlives the updater, such as its owner.
    void setDelegate(FirmwareUpdaterDelegate* delegate) { delegate_ = delegate; }

    /// The checks without their window, never null; may be shared with other threads, which may call
    /// `clearUpdate` and `check`.
    const std::shared_ptr<FirmwareUpdates>& updates() const { return updates_; }
    /// The offered, verified file, or nothing.
    std::optional<std::filesystem::path> update() const { return updates_->update(); }
    void check() { updates_->check(); }

    FirmwareUpdaterProgress& progress() { return *progress_; }

    /// Brings the window to the front. It is in the middle of the screen until the user moves it.
    void showWindow();
    void close();

    /// The action of the button: notifies the delegate.
    void install();
    /// Escape: closes the window.
    void cancelOperation();

    QWidget& window();
    QLabel& blurb() { return *blurb_; }
    NotesView& notes() { return *notes_; }
    AlertButton& button() { return *button_; }

  private:
    FirmwareUpdater();
    bool loadWindow();

    std::unique_ptr<UpdatePanel> window_;
    QLabel* blurb_ = nullptr;  // owned by the window, like the next two
    NotesView* notes_ = nullptr;
    AlertButton* button_ = nullptr;
    std::unique_ptr<FirmwareUpdaterProgress> progress_;
    std::shared_ptr<FirmwareUpdates> updates_;
    FirmwareUpdaterDelegate* delegate_ = nullptr;
};

}  // namespace kzq
