#pragma once

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

/// `name` as one path component: '/' and NUL become '-', "." and ".." get a '-' in front, and it is cut to
/// what leaves room for `reserved` more bytes in the 255 that a file name may have (never inside a UTF-8 character).
std::string fileNameComponent(std::string_view name, std::size_t reserved);

/// Writes `bytes` as "<name><extension>" in `folder`; if that name is taken, as "<name>-2<extension>", then -3
/// and so on: an existing file is never replaced, also not by two programs that do this at once. The bytes are
/// written under a temporary name in the same folder and synced before they get their final name, so a final name
/// always stands for a whole file. On failure nothing is left behind. Blocks; any thread.
NewFile writeNewFile(const std::filesystem::path& folder, std::string_view name, std::string_view extension,
                     std::span<const std::uint8_t> bytes);

}  // namespace kzq
