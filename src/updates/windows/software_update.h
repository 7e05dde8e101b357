#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

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
    std::shared_ptr<SUUpdater> updater;  ///< its observer is the window's from then on
    std::string version;                 ///< the program's own, as people read it
    /// Whether the pedal is at work, so that this program must not be ended. May be empty.
    std::function<bool()> busy;
};

/// The window of the program's own updates: it answers a check that the user asked for, offers what is newer,
/// and shows its download and installation. All members are for the main thread.
class SoftwareUpdate {
  public:
    /// A controller with its window loaded and not yet shown; null when that fails.
    static std::unique_ptr<SoftwareUpdate> softwareUpdate(SoftwareUpdateEnvironment environment);
    SoftwareUpdate(const SoftwareUpdate&) = delete;
    SoftwareUpdate& operator=(const SoftwareUpdate&) = delete;
    SoftwareUpdate(SoftwareUpdate&&) = delete;
    SoftwareUpdate& operator=(SoftwareUpdate&&) = delete;
    ~SoftwareUpdate();

    /// Shows the window and checks, unless an update is under way or ready: then it shows that.
    void checkForUpdates();

    /// What the first button stands for at the moment: install, open the web site, start the updated program,
    /// or close.
    void accept();
    /// Escape, "Later", "Cancel", the close button: gives up what can still be given up, and closes the
    /// window.
    void cancelOperation();

    QWidget& window();

  private:
    explicit SoftwareUpdate(SoftwareUpdateEnvironment environment);
    bool loadWindow();
    void show(const UpdateStatus& status);
    void arrange(const SoftwareUpdateView& view);
    void place(const SoftwareUpdateView& view);

    const SoftwareUpdateEnvironment environment_;
    std::unique_ptr<UpdatePanel> window_;
    QLabel* headline_ = nullptr;  // owned by the window, as the rest
    QLabel* detail_ = nullptr;
    NotesView* notes_ = nullptr;
    LampBar* bar_ = nullptr;
    AlertButton* acceptButton_ = nullptr;
    AlertButton* cancelButton_ = nullptr;
    QString shownNotes_;
};

}  // namespace kzq
