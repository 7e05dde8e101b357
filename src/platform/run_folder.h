#pragma once

#include <filesystem>
#include <mutex>
#include <optional>

#include "platform/descriptor.h"
#include "platform/fixed.h"

namespace kzq {

/// The folder for the temporary files of one run of the program, for this user only (mode 0700).
///
/// It is created on first use and removed, with its content, by `remove`. The run holds a lock inside the
/// folder, which is released when the process ends, however it ends; by this a later run distinguishes a
/// leftover folder from one in use. All members may be called from any thread.
class RunFolder : Fixed {
  public:
    /// The folder of this process, in usualParent(). It outlives everything: the program calls `remove` when
    /// it quits.
    static RunFolder& ofThisRun();
    /// $TMPDIR if that is an absolute path to a folder, else /var/tmp. Neither should be in memory, as a
    /// working copy may have 381 MB.
    static std::filesystem::path usualParent();

    explicit RunFolder(std::filesystem::path parent);
    ~RunFolder();

    /// The folder, created if it does not exist yet. Nothing if it cannot be created (the log says why), and
    /// always after `remove`, so that a late worker does not bring the folder back.
    std::optional<std::filesystem::path> path();

    /// Removes the folder with everything in it.
    void remove();

    /// Removes the folders that this user's earlier runs left behind in the same parent. Folders of living
    /// runs and of other users stay; symbolic links are not followed. Called once when the program starts.
    void sweep() const;

  private:
    std::optional<std::filesystem::path> make();

    const std::filesystem::path parent_;
    std::mutex mutex_;
    std::filesystem::path path_;  ///< empty until it is created
    Descriptor lock_;
    bool removed_ = false;
};

}  // namespace kzq
