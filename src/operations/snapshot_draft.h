#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "audio/wave.h"
#include "loops/slot_number.h"
#include "loops/status.h"
#include "operations/generations.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"

namespace kzq {

/// A snapshot while it is made, in a folder that says so by its name and is locked meanwhile. It gets its
/// date once all loops are there; otherwise its folder stays, and the next one takes its loops over. No audio
/// is ever removed or overwritten. Blocks; one thread at a time.
class SnapshotDraft : Fixed {
  public:
    /// How a loop got into it.
    enum class Way : std::uint8_t {
        written,
        moved,  ///< out of the folder of an interrupted run
        linked  ///< its file is also that of the snapshot before
    };

    /// Which complete snapshots may share their files with it.
    enum class Shared : std::uint8_t { newest, all };

    /// Makes the folder, and the one around it if only that is missing. Errors: folder.
    static Result<std::unique_ptr<SnapshotDraft>> make(const Generations& generations,
                                                       const std::string& stamp,
                                                       Shared shared = Shared::newest);
    ~SnapshotDraft();

    const std::filesystem::path& path() const { return folder_.path(); }
    const BackupIndex& index() const { return index_; }
    /// Whether an interrupted run has saved what may be this loop.
    bool wasSaved(SlotNumber slot, const Loop& loop) const;
    /// Whether it probably takes no space.
    bool isFree(SlotNumber slot, const Loop& loop) const;

    /// Adds a loop; bit for bit the same as one that is there already, it becomes that file. The file cannot
    /// be written to from then on: other snapshots may share it.
    Result<Way> add(SlotNumber slot, const Loop& loop, const Bytes& image);
    /// What it is made before: see BackupIndex.
    void setBefore(const std::string& deed) { index_.before = deed; }
    /// It is complete: gives it its date. Folders of interrupted runs that have nothing more in them go.
    Result<Snapshot> finish(const std::string& firmware, const std::string& stamp);

  private:
    /// Where loops may be that need not be written again.
    struct Source {
        BackupFolder folder;
        BackupIndex index;
        Descriptor lock = {};  ///< of an interrupted run, which has ended; others are only linked to

        bool interrupted() const { return static_cast<bool>(lock); }
        /// What may be that audio; that of the same slot first.
        std::vector<std::filesystem::path> filesOf(SlotNumber slot, const std::string& sha256) const;
    };

    SnapshotDraft(Generations generations, std::filesystem::path path, Descriptor lock)
        : generations_(std::move(generations)), folder_(std::move(path)), lock_(std::move(lock)) {}

    void findSources(Shared shared);
    bool canLink() const;
    Result<void> list(SlotNumber slot, const BackupEntry& entry);
    std::optional<Way> take(SlotNumber slot, const BackupEntry& entry, const Bytes& image) const;

    Generations generations_;
    BackupFolder folder_;
    Descriptor lock_;
    BackupIndex index_;
    std::vector<Source> sources_;
    bool links_ = false;
    bool finished_ = false;
    bool isFirst_ = false;  ///< the folder around it was made for it
};

}  // namespace kzq
