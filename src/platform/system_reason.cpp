#include "platform/system_reason.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "words/words.h"

namespace kzq {

namespace {

/// The C library translates its own by LC_MESSAGES, which need not be the language of the window.
constexpr auto usualReasons = std::to_array<std::pair<int, const char*>>({
    {EPERM, english("Operation not permitted")},
    {ENOENT, english("No such file or directory")},
    {EIO, english("Input/output error")},
    {ENXIO, english("No such device or address")},
    {ENOMEM, english("Cannot allocate memory")},
    {EACCES, english("Permission denied")},
    {EBUSY, english("Device or resource busy")},
    {EEXIST, english("File exists")},
    {ENODEV, english("No such device")},
    {ENOTDIR, english("Not a directory")},
    {EISDIR, english("Is a directory")},
    {EMFILE, english("Too many open files")},
    {EFBIG, english("File too large")},
    {ENOSPC, english("No space left on device")},
    {EROFS, english("Read-only file system")},
    {ENAMETOOLONG, english("File name too long")},
    {ENOTCONN, english("Transport endpoint is not connected")},
    {ETIMEDOUT, english("Connection timed out")},
    {ESTALE, english("Stale file handle")},
    {EDQUOT, english("Disk quota exceeded")},
});

}  // namespace

std::string systemReason(int error) {
    const auto* const usual = std::ranges::find(usualReasons, error, &std::pair<int, const char*>::first);
    return usual == usualReasons.end() ? std::generic_category().message(error) : usual->second;
}

}  // namespace kzq
