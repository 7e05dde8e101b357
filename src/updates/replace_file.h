#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kzq {

/// Replaces the content of the file `name` in `folder` with `bytes`. A reader, even after a power loss, sees
/// the old file or the complete new one. Only a plain file is replaced: a link or a folder of that name stays
/// unchanged. Returns 0 or an errno value; on failure nothing is left behind. Any thread.
int replaceFile(const std::filesystem::path& folder, const std::string& name,
                std::span<const std::uint8_t> bytes);

/// Removes what killed runs of `replaceFile` left in `folder`: unfinished files not touched for a day. Any
/// thread.
void removeOldDrafts(const std::filesystem::path& folder);

/// Makes the names in `folder` durable; the files are complete anyway, so a failure is only logged.
void syncFolder(const std::filesystem::path& folder);

/// Whether there is a file at `path` itself; a link to one does not count.
bool isPlainFile(const std::filesystem::path& path);
/// Whether a file can be saved at `path`: it is a file, or free.
bool isPlaceForFile(const std::filesystem::path& path);

/// The whole content of the open file. Nothing if it is not a plain file, cannot be read or is longer than
/// `limit`.
std::optional<std::vector<std::uint8_t>> readPlainFile(int descriptor, std::uint64_t limit);
/// The same for the file at `path`; links are not followed.
std::optional<std::vector<std::uint8_t>> readPlainFile(const std::filesystem::path& path,
                                                       std::uint64_t limit);

}  // namespace kzq
