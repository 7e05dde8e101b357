#pragma once

#include <filesystem>
#include <optional>

#include "audio/wave.h"
#include "loops/slot_number.h"
#include "operations/backup_index.h"
#include "platform/result.h"

namespace kzq {

/// A backup on the disk: WAV files, and an index that is there only once all of them are. Until then a second
/// index lists what is there so far. No audio that is there is ever replaced or removed. Blocks; one thread
/// at a time.
class BackupFolder {
  public:
    explicit BackupFolder(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }

    /// Makes it if it is missing. A failure shows, with its reason, when a file is written.
    void make() const;

    bool isComplete() const;
    /// noBackup when there is none; of one that cannot be used: unreadable, backupForeign, backupNewer,
    /// backupDamaged.
    Result<BackupIndex> index() const;
    Result<BackupIndex> partialIndex() const;

    /// The file of one loop, if it is complete and has the audio that the index describes.
    std::optional<Bytes> loop(const BackupEntry& entry) const;
    /// Writes a loop's file; an equal one that is there already is taken.
    Result<void> addLoop(SlotNumber slot, const Bytes& image, BackupEntry& entry) const;

    Result<void> writePartialIndex(const BackupIndex& index) const;
    /// Writes the index; the partial one goes.
    Result<void> finish(const BackupIndex& index) const;

  private:
    Result<BackupIndex> read(const char* name) const;

    std::filesystem::path path_;
};

}  // namespace kzq
