#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/draft.h"

namespace kzq {

/// `name` as one path component: '/' and NUL become '-', "." and ".." get a '-' in front, an empty name
/// becomes "-", and it is cut to leave room for `reserved` more bytes in the 255 that a file name may have
/// (never inside a UTF-8 character).
std::string fileNameComponent(std::string_view name, std::size_t reserved);

/// Writes `bytes` as "<name><extension>" in `folder`; if that name is taken, as "<name>-2<extension>", then
/// -3 and so on: an existing file is never overwritten, even if two programs do this at once. The bytes are
/// synced before they get their final name, so a final name means a complete file, or an empty one: see
/// Draft::Road::reserve. On failure, which is a Draft's and logged, nothing is left behind. `first` is the
/// road tried first. Returns the file's path. Blocks; any thread.
Result<std::filesystem::path> writeNewFile(const std::filesystem::path& folder, std::string_view name,
                                           std::string_view extension, ByteView bytes,
                                           Draft::Road first = Draft::Road::unnamed);

/// A copy of the file at `from`, under a name as writeNewFile gives it. Not synced, and half of it may stand
/// there for a while: for folders that only we use. Blocks; any thread.
Result<std::filesystem::path> copyToNewFile(const std::filesystem::path& from,
                                            const std::filesystem::path& folder, std::string_view name,
                                            std::string_view extension);

/// What writeNewFile does, under exactly that name: EEXIST if it is taken.
Result<void> writeFileNamed(const std::filesystem::path& file, ByteView bytes);

}  // namespace kzq
