#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kzq {

/// Puts `bytes` into the file `name` in `folder`, in place of what it held. A reader, and a computer that
/// loses its power, sees the old file or the whole new one. Only a plain file is replaced: a link or a folder
/// of that name stays as it is. Returns 0 or an errno value; on failure nothing is left behind. Any thread.
int replaceFile(const std::filesystem::path& folder, const std::string& name,
                std::span<const std::uint8_t> bytes);

/// Removes what `replaceFile` left in `folder` when its process was killed: its unfinished files that have
/// not been touched for a day. Any thread.
void removeOldDrafts(const std::filesystem::path& folder);

/// Makes the names in `folder` last; what is in place is whole anyway, so a failure is only logged.
void syncFolder(const std::filesystem::path& folder);

/// Whether there is a file at `path` itself; a link to one does not count.
bool isPlainFile(const std::filesystem::path& path);
/// Whether a file can be put at `path`: one is there, or nothing.
bool isPlaceForFile(const std::filesystem::path& path);

/// What the open file holds from its start. Nothing when it is not a plain file, cannot be read or is longer
/// than `limit`.
std::optional<std::vector<std::uint8_t>> readPlainFile(int descriptor, std::uint64_t limit);
/// The same of the file at `path`, read through no link.
std::optional<std::vector<std::uint8_t>> readPlainFile(const std::filesystem::path& path,
                                                       std::uint64_t limit);

}  // namespace kzq
