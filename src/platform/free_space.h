#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace kzq {

/// Bytes that this user may still write in the file system of a folder; nothing when that is not known.
using FreeSpace = std::function<std::optional<std::uint64_t>(const std::filesystem::path& folder)>;

/// What the system says about `folder`, or about the one around it where it is still to be made. Blocks; any
/// thread.
std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder);

/// Why files of `bytes` bytes in all do not fit into `folder`, with the numbers and what to do; nothing when
/// they do, or when nobody knows. What another program writes meanwhile is not foreseen. Blocks; any thread.
std::optional<std::string> tooLittleSpace(const std::filesystem::path& folder, std::uint64_t bytes,
                                          const FreeSpace& freeSpace = kzq::freeSpace);

/// "594 B", "12.3 kB", "2.1 MB", rounded down.
std::string sizeText(std::uint64_t bytes);

}  // namespace kzq
