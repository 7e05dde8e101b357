#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "platform/executor.h"
#include "platform/fixed.h"
#include "updates/http_client.h"
#include "updates/self_check.h"
#include "updates/update_build.h"
#include "updates/update_feed.h"
#include "updates/update_floor.h"
#include "updates/update_job.h"

namespace kzq {

class SUUpdater;

class SUUpdaterDelegate : Fixed {
  public:
    virtual ~SUUpdaterDelegate() = default;

    /// Just before the updated program is started in place of this one. Main thread.
    virtual void updaterWillRelaunchApplication(SUUpdater& updater) = 0;
};

/// The desktop's services. Called on the main thread; false for "could not".
struct UpdateDesktop {
    std::function<bool(const std::filesystem::path&)> openPackage;  ///< with the package installer
    std::function<bool(const std::string&)> openWebsite;
    std::function<bool(const std::filesystem::path&)> relaunch;  ///< starts that program and ends this one
};

/// What the updater runs on. Executor and client outlive it.
struct UpdaterEnvironment {
    Executor& executor;
    HttpClient& http;
    UpdateDesktop desktop;
    UpdateBuild build;
    Installation installation;
    /// An existing folder that outlives the program, for packages for the package installer.
    std::filesystem::path downloads;
    std::filesystem::path home = {};  ///< the user's home folder; empty for none: see UpdateFloor
    SelfCheck selfCheck = [](const auto& program) { return kzq::selfCheck(program); };
};

enum class UpdateState {
    idle,
    checking,     ///< reading the feed
    upToDate,     ///< nothing newer
    offered,      ///< something newer; see `UpdateStatus::installable`
    downloading,  ///< `received` of `total` bytes
    verifying,    ///< length and signature
    installing,   ///< being moved into place
    ready,        ///< in place; `relaunch` starts it; `reason` is set if that failed
    handedOver,   ///< the desktop's package installer has it
    failed        ///< see `reason`; nothing was installed
};

struct UpdateStatus {
    UpdateState state = UpdateState::idle;
    std::string version;       ///< of the newer one, as people read it; from `offered` on
    std::string notes;         ///< as in FeedItem
    bool installable = false;  ///< false: the update is only announced; `install` opens the website
    std::uint64_t received = 0;
    std::uint64_t total = 0;
    std::string reason;  ///< in the user's language

    bool operator==(const UpdateStatus&) const = default;
};

/// Updates the program itself, without a window of its own: a window observes `status` and passes on the
/// user's choices. Only what is signed with a pinned key, for this system, newer than the running program and
/// not older than any that was installed is installed. All members are for the main thread.
///
///     idle → checking → upToDate | offered | failed
///     offered → downloading → verifying → installing → ready | handedOver | failed
///
/// The signature covers what decides, but not the notes, so the feed is only taken over verified HTTPS.
class SUUpdater : public std::enable_shared_from_this<SUUpdater>, Fixed {
  public:
    using Observer = std::function<void(const UpdateStatus&)>;

    explicit SUUpdater(UpdaterEnvironment environment);
    /// Ends a running check or installation.
    ~SUUpdater();

    /// https address of the feed.
    void setFeedURL(std::string feed) { feed_ = std::move(feed); }
    void setDelegate(std::weak_ptr<SUUpdaterDelegate> delegate) { delegate_ = std::move(delegate); }
    /// Called on each change of the status; for progress at most once per turn of the main queue.
    void setObserver(Observer observer) { observer_ = std::move(observer); }
    const UpdateStatus& status() const { return status_; }

    /// Reads the feed. Does nothing while an update is under way or waits for its relaunch; an offer is
    /// checked again.
    void checkForUpdates();
    /// The user accepts an offer: downloads and installs it, or opens the website if it is not
    /// installable.
    void install();
    /// The user declines or dismisses: back to idle from every state but `ready` and those in which the
    /// update can no longer be stopped. Returns whether it is idle now.
    bool cancel();
    /// From `ready`: notifies the delegate and starts the updated program. Stays `ready` if that fails.
    void relaunch();

  private:
    void set(UpdateStatus status);
    void setState(UpdateState state);
    void fail(const UpdateReason& reason);
    void checked(const FeedReading& reading);
    void offer(const FeedItem& item);
    void startInstalling();
    void showRun(const std::shared_ptr<UpdateRun>& run);
    void installed(const std::filesystem::path& place, const UpdateReason& failure);

    const UpdaterEnvironment environment_;
    const UpdateFloor floor_;
    std::string feed_;
    std::weak_ptr<SUUpdaterDelegate> delegate_;
    Observer observer_;
    UpdateStatus status_;
    FeedItem item_;                   ///< the offered item
    std::shared_ptr<UpdateRun> run_;  ///< running in the background; null for none
};

}  // namespace kzq
