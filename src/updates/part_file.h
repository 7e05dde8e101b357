#pragma once

#include <cstdint>
#include <filesystem>

#include "platform/bytes.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"
#include "platform/result.h"

namespace kzq {

/// A file that is being downloaded. A lock keeps a second program from writing into it. It stays when the
/// object goes, so that a later one continues it. One thread at a time.
class PartFile : Fixed {
  public:
    explicit PartFile(std::filesystem::path path) : path_(std::move(path)) {}

    // Of a failure, `where` says which step it was, in words for the user; `error` may be an errno value.

    /// Opens what is there, or a new file. Before all that follows, once.
    Result<void> open();
    Result<void> clear();
    Result<void> append(ByteView bytes);
    /// What is on the disk, if that is at most `limit` bytes.
    Result<Bytes> read(std::uint64_t limit) const;
    std::uint64_t size() const;

    /// Whether the name still refers to this file.
    bool isStillOurs() const;
    /// Sets these permissions, and that to write, without which a leftover could not be opened again; keeps
    /// it open for reading only, as a file that is to be started must be.
    Result<void> seal(std::filesystem::perms permissions);
    /// Moves it to its final name, with these permissions, by one rename; synced before, and closed.
    Result<void> place(const std::filesystem::path& name, std::filesystem::perms permissions);
    /// Removes and closes it, if it is open and still ours.
    void remove();

    const std::filesystem::path& path() const { return path_; }

  private:
    bool isPrivate() const;

    const std::filesystem::path path_;
    Descriptor file_;
};

}  // namespace kzq
