#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "platform/fixed.h"
#include "updates/su_updater.h"

class QLabel;
class QWidget;

namespace kzq {

class AlertButton;
class LampBar;
class NotesView;
class UpdatePanel;
struct SoftwareUpdateView;

struct SoftwareUpdateEnvironment {
    std::shared_ptr<SUUpdater> updater;  ///< the window becomes its observer
    std::string version;                 ///< the program's own, for people
    /// Whether the pedal is in use, so that this program must not be ended. May be empty.
    std::function<bool()> busy;
};

/// The window for updates of the program itself: it shows the result of a check, offers a newer version, and
/// shows its download and installation. All members are for the main thread.
class SoftwareUpdate : Fixed {
  public:
    /// A controller; its window is made once there is something to show. Null without an updater.
    static std::unique_ptr<SoftwareUpdate> softwareUpdate(SoftwareUpdateEnvironment environment);
    ~SoftwareUpdate();

    /// Shows the window and checks, unless an update is under way or ready: then it shows that.
    void checkForUpdates();

    /// The current action of the first button: install, open the website, start the updated program, or
    /// close.
    void accept();
    /// Escape, "Later", "Cancel", the close button: cancels what can still be cancelled, and closes the
    /// window.
    void cancelOperation();

    QWidget& window();

  private:
    explicit SoftwareUpdate(SoftwareUpdateEnvironment environment);
    void loadWindow();
    UpdatePanel& panel();
    void show(const UpdateStatus& status);
    void arrange(const SoftwareUpdateView& view);
    void place(const SoftwareUpdateView& view);

    const SoftwareUpdateEnvironment environment_;
    std::unique_ptr<UpdatePanel> window_;
    QLabel* headline_ = nullptr;  // owned by the window, like the rest
    QLabel* detail_ = nullptr;
    NotesView* notes_ = nullptr;
    LampBar* bar_ = nullptr;
    AlertButton* acceptButton_ = nullptr;
    AlertButton* cancelButton_ = nullptr;
    QString shownNotes_;
};

}  // namespace kzq
