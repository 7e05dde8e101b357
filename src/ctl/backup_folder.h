#pragma once

#include <filesystem>
#include <optional>

#include "audio/wave.h"
#include "ctl/backup_index.h"
#include "ctl/sentences.h"

namespace kzq::ctl {

/// A backup on the disk: WAV files, and an index that is there only once all of them are. Until then a second
/// index lists what is there so far. No audio that is there is ever replaced or removed. Blocks; one thread
/// at a time.
class BackupFolder {
  public:
    explicit BackupFolder(std::filesystem::path path) : path_(std::move(path)) {}

    const std::filesystem::path& path() const { return path_; }

    bool isComplete() const;
    /// Nothing when there is none; `problem` is set when there is one that cannot be used.
    std::optional<BackupIndex> index(std::optional<Explanation>& problem) const;
    std::optional<BackupIndex> partialIndex(std::optional<Explanation>& problem) const;

    /// The file of one loop, if it is complete and has the audio that the index describes.
    std::optional<Bytes> loop(const BackupEntry& entry) const;
    /// Writes a loop's file; an equal one that is there already is taken.
    std::optional<Explanation> addLoop(std::uint8_t slot, const Bytes& image, BackupEntry& entry) const;

    std::optional<Explanation> writePartialIndex(const BackupIndex& index) const;
    /// Writes the index; the partial one goes.
    std::optional<Explanation> finish(const BackupIndex& index) const;

  private:
    std::optional<BackupIndex> read(const char* name, std::optional<Explanation>& problem) const;
    Explanation notWritten(const std::string& name, int error) const;

    std::filesystem::path path_;
};

}  // namespace kzq::ctl
