#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace kzq {

/// The outcome of writeNewFile: `path` on success, otherwise `error`, an errno value, with `step` naming what
/// failed ("create", "write", "sync", "put into place").
struct NewFile {
    std::filesystem::path path;
    int error = 0;
    std::string step;

    explicit operator bool() const { return error == 0; }
};

/// How a file gets its final name without overwriting another, in order of preference. File systems differ in
/// what they support.
enum class NewFileRoad {
    unnamed,  ///< written without any name, then linked: nothing remains even if the program is killed
    renameNoReplace,  ///< written under a hidden name, renamed
    link,             ///< written under a hidden name, linked, unlinked
    reserve  ///< written under a hidden name, renamed over an empty file made to reserve the final name
};

/// `name` as one path component: '/' and NUL become '-', "." and ".." get a '-' in front, an empty name
/// becomes "-", and it is cut to leave room for `reserved` more bytes in the 255 that a file name may have
/// (never inside a UTF-8 character).
std::string fileNameComponent(std::string_view name, std::size_t reserved);

/// Writes `bytes` as "<name><extension>" in `folder`; if that name is taken, as "<name>-2<extension>", then
/// -3 and so on: an existing file is never overwritten, even if two programs do this at once. The bytes are
/// synced before they get their final name, so a final name always means a complete file. On failure nothing
/// is left behind. `first` is the way tried first; the others follow if the file system lacks it. Blocks; any
/// thread.
NewFile writeNewFile(const std::filesystem::path& folder, std::string_view name, std::string_view extension,
                     std::span<const std::uint8_t> bytes, NewFileRoad first = NewFileRoad::unnamed);

}  // namespace kzq
