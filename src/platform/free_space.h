#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "platform/trouble.h"

namespace kzq {

/// Bytes that this user may still write in the file system of a folder; nothing when that is not known.
using FreeSpace = std::function<std::optional<std::uint64_t>(const std::filesystem::path& folder)>;

/// What the system says about `folder`, or about the one around it where it is still to be made. Blocks; any
/// thread.
std::optional<std::uint64_t> freeSpace(const std::filesystem::path& folder);

/// diskFull: files of `bytes` bytes in all do not fit into `folder`; `words` has the numbers. Nothing when
/// they do, or when nobody knows. What another program writes meanwhile is not foreseen. Blocks; any thread.
std::optional<Trouble> tooLittleSpace(const std::filesystem::path& folder, std::uint64_t bytes,
                                      const FreeSpace& freeSpace = kzq::freeSpace);

/// "594 B", "12.3 kB", "2.1 MB", rounded down.
std::string sizeText(std::uint64_t bytes);

}  // namespace kzq
