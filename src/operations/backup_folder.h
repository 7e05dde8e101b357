#pragma once

#include <filesystem>

#include "operations/backup_index.h"
#include "platform/result.h"

namespace kzq {

/// One backup on the disk: WAV files, and an index. While it is made, or if that was interrupted, a second
/// index lists what is there so far, and there is no other. Blocks; one thread at a time.
class BackupFolder {
  public:
    explicit BackupFolder(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }

    bool isComplete() const;
    /// What a complete one has.
    std::filesystem::path indexFile() const;
    /// noBackup when there is none; of one that cannot be used: unreadable, backupForeign, backupNewer,
    /// backupDamaged.
    Result<BackupIndex> index() const;
    Result<BackupIndex> partialIndex() const;

    std::filesystem::path fileOf(const BackupEntry& entry) const { return path_ / entry.file; }
    /// Whether the file of a loop is complete and has the audio that the index describes.
    bool isIntact(const BackupEntry& entry) const;

    Result<void> writePartialIndex(const BackupIndex& index) const;
    /// Writes the index; the partial one goes.
    Result<void> finish(const BackupIndex& index) const;
    /// In place of the index that is there: with more about the same loops.
    Result<void> replaceIndex(const BackupIndex& index) const;
    /// Removes the folder if it holds no more than an index without its files. Whether it is gone.
    bool removeIfEmpty() const;
    /// Removes what a backup consists of, by its names, and the folder, unless there is anything else in it.
    void remove() const;

  private:
    Result<BackupIndex> read(const char* name) const;

    std::filesystem::path path_;
};

}  // namespace kzq
