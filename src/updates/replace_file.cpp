#include "updates/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <system_error>

#include "platform/descriptor.h"
#include "platform/unique_name.h"
#include "platform/write_all.h"
#include "updates/update_log.h"

namespace kzq {
namespace {

constexpr mode_t newFileMode = 0666;
constexpr time_t oldAge = 24L * 60 * 60;

bool isOldDraft(const std::filesystem::path& path) {
    struct stat status {};
    return isHiddenName(path.filename().string()) && ::lstat(path.c_str(), &status) == 0 &&
           S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
           status.st_mtime < ::time(nullptr) - oldAge;
}

/// The new content under its hidden name, 0 or an errno value.
int writeDraft(const std::filesystem::path& draft, std::span<const std::uint8_t> bytes) {
    const Descriptor file(
        ::open(draft.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, newFileMode));
    if (!file) {
        return errno;
    }
    if (const int error = writeAll(file.get(), bytes)) {
        return error;
    }
    return ::fsync(file.get()) == 0 ? 0 : errno;
}

}  // namespace

int replaceFile(const std::filesystem::path& folder, const std::string& name,
                std::span<const std::uint8_t> bytes) {
    const auto place = folder / name;
    if (!isPlaceForFile(place)) {
        return EEXIST;
    }
    const auto draft = folder / hiddenName();
    int error = writeDraft(draft, bytes);
    // If the path becomes a link just now, the rename replaces the link and leaves its target alone.
    if (error == 0 && ::rename(draft.c_str(), place.c_str()) != 0) {
        error = errno;
    }
    if (error != 0) {
        ::unlink(draft.c_str());
        return error;
    }
    syncFolder(folder);
    return 0;
}

void removeOldDrafts(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::directory_iterator entry(folder, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        if (isOldDraft(entry->path())) {
            ::unlink(entry->path().c_str());
        }
    }
}

void syncFolder(const std::filesystem::path& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if ((!descriptor || ::fsync(descriptor.get()) != 0) && errno != EINVAL) {
        logUpdates("folder not synced: " + std::generic_category().message(errno));
    }
}

bool isPlainFile(const std::filesystem::path& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool isPlaceForFile(const std::filesystem::path& path) {
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0) {
        return errno == ENOENT;
    }
    return S_ISREG(status.st_mode);
}

std::optional<std::vector<std::uint8_t>> readPlainFile(const std::filesystem::path& path,
                                                       std::uint64_t limit) {
    // Without O_NONBLOCK a pipe in the file's place would block the caller forever.
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    return file ? readPlainFile(file.get(), limit) : std::nullopt;
}

std::optional<std::vector<std::uint8_t>> readPlainFile(int descriptor, std::uint64_t limit) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        static_cast<std::uint64_t>(status.st_size) > limit) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(status.st_size));
    std::size_t read = 0;
    while (read < bytes.size()) {
        const ssize_t count =
            ::pread(descriptor, bytes.data() + read, bytes.size() - read, static_cast<off_t>(read));
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            return std::nullopt;
        }
        if (count == 0) {
            break;
        }
        read += static_cast<std::size_t>(count);
    }
    bytes.resize(read);
    return bytes;
}

}  // namespace kzq
