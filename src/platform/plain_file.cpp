#include "platform/plain_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <string>
#include <utility>

namespace kzq {
namespace {

using Kind = Trouble::Kind;

Trouble cannotOpen(const std::filesystem::path& path, int error) {
    const bool missing = error == ENOENT || error == ENOTDIR;
    return {missing ? Kind::notAFile : Kind::unreadable, path.string(), error};
}

}  // namespace

Result<PlainFile> openPlainFile(const std::filesystem::path& path, Links links) {
    const int flags = O_PATH | O_CLOEXEC | (links == Links::refused ? O_NOFOLLOW : 0);
    const Descriptor place(::open(path.c_str(), flags));
    struct stat facts {};
    if (!place || ::fstat(place.get(), &facts) != 0) {
        return cannotOpen(path, errno);
    }
    if (!S_ISREG(facts.st_mode)) {
        return Trouble{Kind::notAFile, path.string()};
    }
    const std::string self = "/proc/self/fd/" + std::to_string(place.get());
    Descriptor file(::open(self.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    if (!file) {
        return cannotOpen(path, errno);
    }
    return PlainFile{std::move(file), static_cast<std::uint64_t>(facts.st_size)};
}

Result<std::size_t> readAt(int descriptor, std::span<std::uint8_t> into, std::uint64_t offset) {
    std::size_t done = 0;
    while (done < into.size()) {
        const ssize_t got =
            ::pread(descriptor, into.data() + done, into.size() - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno != EINTR) {
            return Trouble{Kind::unreadable, {}, errno};
        }
        if (got == 0) {
            break;
        }
        done += got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    return done;
}

Result<Bytes> readPlainFile(int descriptor, std::uint64_t limit) {
    struct stat facts {};
    if (::fstat(descriptor, &facts) != 0 || !S_ISREG(facts.st_mode)) {
        return Trouble{Kind::notAFile};
    }
    if (static_cast<std::uint64_t>(facts.st_size) > limit) {
        return Trouble{Kind::tooLarge};
    }
    Bytes bytes(static_cast<std::size_t>(facts.st_size));
    const auto count = readAt(descriptor, bytes, 0);
    if (!count) {
        return count.error();
    }
    bytes.resize(*count);
    return bytes;
}

Result<Bytes> readPlainFile(const std::filesystem::path& path, std::uint64_t limit, Links links) {
    const auto opened = openPlainFile(path, links);
    if (!opened) {
        return opened.error();
    }
    auto bytes = readPlainFile(opened->file.get(), limit);
    if (!bytes) {
        bytes.error().where = path.string();
    }
    return bytes;
}

bool isStillNamed(int folder, const std::filesystem::path& name, int file) {
    struct stat named {};
    struct stat opened {};
    return ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 && ::fstat(file, &opened) == 0 &&
           named.st_ino == opened.st_ino && named.st_dev == opened.st_dev;
}

bool isPlainFile(const std::filesystem::path& path) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

bool isPlaceForFile(const std::filesystem::path& path) {
    struct stat facts {};
    if (::lstat(path.c_str(), &facts) != 0) {
        return errno == ENOENT;
    }
    return S_ISREG(facts.st_mode);
}

}  // namespace kzq
