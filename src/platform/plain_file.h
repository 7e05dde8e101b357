#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>

#include "platform/bytes.h"
#include "platform/descriptor.h"
#include "platform/result.h"

namespace kzq {

// Plain files: no folder, pipe or device. Any thread. Failures: notAFile (`error` is 0 if there is something
// else), unreadable, tooLarge; `where` is the path.

/// What to do when the last part of a path is a symbolic link.
enum class Links : std::uint8_t { refused, followed };

/// Open for reading.
struct PlainFile {
    Descriptor file;
    std::uint64_t size = 0;
};

/// Opens nothing but a plain file: to open a pipe or a device may block or have side effects.
Result<PlainFile> openPlainFile(const std::filesystem::path& path, Links links);

/// Fills `into` from `offset` on; the answer is smaller only at the end of the file.
Result<std::size_t> readAt(int descriptor, std::span<std::uint8_t> into, std::uint64_t offset);

/// The whole content of the open file, if it is a plain one of at most `limit` bytes.
Result<Bytes> readPlainFile(int descriptor, std::uint64_t limit);
/// The same for the file at `path`.
Result<Bytes> readPlainFile(const std::filesystem::path& path, std::uint64_t limit, Links links);

/// Whether `name` in the open `folder`, or a whole path with AT_FDCWD, still refers to the open `file`, and
/// not through a link.
bool isStillNamed(int folder, const std::filesystem::path& name, int file);
/// Whether there is a plain file at `path` itself; a link to one does not count.
bool isPlainFile(const std::filesystem::path& path);
/// Whether a file can be saved at `path`: it is a plain file, or free.
bool isPlaceForFile(const std::filesystem::path& path);

}  // namespace kzq
