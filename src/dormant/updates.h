#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/executor.h"

namespace kzq {

/// What `Updates` runs on; the executor outlives it.
struct UpdatesEnvironment {
    Executor& executor;
    std::function<std::optional<std::string>()> firmwareVersion;  ///< that of the connected pedal
    std::string softwareVersion;                                  ///< the program's own
};

enum class UpdateKind { firmware = 1, software = 2 };

/// Where each kind of update comes from and is cached, and the newest version in the cache. It downloads
/// nothing itself.
class Updates : public std::enable_shared_from_this<Updates> {
  public:
    /// Called once, before `updates`.
    static void load(UpdatesEnvironment environment);
    /// Forgets the shared instance and the environment; for tests.
    static void unload();
    /// The shared instance, created on first use: its timer fires at once and then every 15 minutes. Null
    /// before `load`. Main thread.
    static std::shared_ptr<Updates> updates();

    /// An http address on this computer: a placeholder.
    static std::optional<std::string> feedLocation(UpdateKind kind);
    /// The cache folder. Its "~" is not expanded: it is a folder of that name in the current folder.
    static std::optional<std::filesystem::path> cacheFolder(UpdateKind kind);

    /// A refresh without waiting for its result.
    void timer();
    /// In the background: whether every kind has a feed location and a cache folder. `completion` may be
    /// empty.
    void refresh(std::function<void(bool)> completion);

    /// Nothing if unknown or empty.
    std::optional<std::string> currentFirmware() const;
    std::optional<std::string> currentSoftware() const;
    /// The version of the cache manifest's last element; nothing if that element is incomplete. Without a
    /// manifest, or with an empty one, the current version.
    std::optional<std::string> latestCachedFirmware() const;
    std::optional<std::string> latestCachedSoftware() const;

  private:
    explicit Updates(UpdatesEnvironment environment);
    void scheduleTimer();

    const UpdatesEnvironment environment_;
};

}  // namespace kzq
