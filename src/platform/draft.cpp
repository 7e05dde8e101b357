#include "platform/draft.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "platform/left_drafts.h"
#include "platform/log.h"
#include "platform/new_name.h"
#include "platform/plain_file.h"
#include "platform/unique_name.h"
#include "platform/write_all.h"

namespace kzq {
namespace {

constexpr mode_t newFileMode = 0666;

/// 0, or the errno value behind `result`.
int answer(int result) {
    return result == 0 ? 0 : errno;
}

Result<void> outcome(int error, const char* step) {
    if (error != 0) {
        return Trouble{Trouble::Kind::file, step, error};
    }
    return {};
}

Descriptor createNew(int folder, const std::string& name) {
    return openNew(name, newFileMode, O_WRONLY, folder);
}

/// Whether it is locked, where that can be, and was not taken for one that was left just before.
bool isClaimed(int folder, const std::string& name, int file) {
    const bool taken = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    struct stat named {};
    const bool gone = ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) != 0 && errno == ENOENT;
    return !taken && !gone;
}

int syncFile(int file) {
    int error = 0;
    do {
        error = answer(::fsync(file));
    } while (error == EINTR);
    return error;
}

void syncOpened(const Descriptor& folder) {
    const int error = folder ? syncFile(folder.get()) : errno;
    if (error != 0 && error != EINVAL) {
        log(LogCategory::files, "folder not synced: " + std::generic_category().message(error));
    }
}

/// Whether the result of one road means that the next should be tried.
bool isMissing(int error) {
    constexpr std::array<int, 3> answers = {EPERM, EMLINK, EXDEV};
    return isNoSuchCall(error) || std::ranges::find(answers, error) != answers.end();
}

}  // namespace

Draft::Draft(std::filesystem::path folder, Road first) : path_(std::move(folder)), road_(first) {}

Draft::~Draft() {
    if (!hidden_.empty()) {
        ::unlinkat(folder_.get(), hidden_.c_str(), 0);
    }
}

Result<void> Draft::open() {
    folder_ = Descriptor(::open(path_.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder_) {
        return outcome(errno, "create");
    }
    if (road_ == Road::unnamed) {
        file_ = Descriptor(::openat(folder_.get(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, newFileMode));
        if (file_) {
            return {};
        }
        // File systems without such files fail in different ways, so after any failure the next road is
        // tried; a real error (no permission, no space) shows there again.
        road_ = Road::renameNoReplace;
    }
    return outcome(openNamed(), "create");
}

int Draft::openNamed() {
    removeDeadDrafts(path_);
    constexpr int attempts = 100;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const std::string name = hiddenName();
        file_ = createNew(folder_.get(), name);
        if (!file_ && errno != EEXIST && errno != EINTR) {
            return errno;
        }
        if (file_ && isClaimed(folder_.get(), name, file_.get())) {
            hidden_ = name;
            return 0;
        }
    }
    return EEXIST;
}

Result<void> Draft::write(ByteView bytes) {
    return outcome(writeAll(file_.get(), bytes), "write");
}

Result<void> Draft::writeAt(ByteView bytes, std::uint64_t offset) {
    return outcome(writeAllAt(file_.get(), bytes, offset), "write");
}

Result<void> Draft::sync() {
    return outcome(syncFile(file_.get()), "sync");
}

void Draft::hasten() const {
    ::sync_file_range(file_.get(), 0, 0, SYNC_FILE_RANGE_WRITE);
}

Result<Descriptor> Draft::handOver(std::uint64_t offset) const {
    Descriptor file(::open(self().c_str(), O_WRONLY | O_CLOEXEC));
    if (!file || ::lseek(file.get(), static_cast<off_t>(offset), SEEK_SET) < 0) {
        return Trouble{Trouble::Kind::file, "write", errno};
    }
    return file;
}

Result<Descriptor> Draft::reader() const {
    Descriptor file(::open(self().c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) {
        return Trouble{Trouble::Kind::file, "read", errno};
    }
    return file;
}

/// The file's road that needs no name.
std::string Draft::self() const {
    return "/proc/self/fd/" + std::to_string(file_.get());
}

Result<void> Draft::place(const std::string& name) {
    int error = give(name);
    while (isMissing(error) && (road_ == Road::renameNoReplace || road_ == Road::link)) {
        road_ = road_ == Road::renameNoReplace ? Road::link : Road::reserve;
        error = give(name);
    }
    return outcome(error, placing);
}

Result<void> Draft::replace(const std::string& name) {
    return outcome(renameOver(name), placing);
}

void Draft::syncFolder() const {
    syncOpened(Descriptor(::openat(folder_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
}

int Draft::give(const std::string& name) {
    switch (road_) {
        case Road::unnamed:
            return linkUnnamed(name);
        case Road::renameNoReplace:
            return renameNoReplace(name);
        case Road::link:
            return answer(::linkat(folder_.get(), hidden_.c_str(), folder_.get(), name.c_str(), 0));
        case Road::reserve:
            return renameOverReserved(name);
    }
    return EINVAL;
}

int Draft::linkUnnamed(const std::string& name) const {
    return answer(::linkat(AT_FDCWD, self().c_str(), folder_.get(), name.c_str(), AT_SYMLINK_FOLLOW));
}

int Draft::renameNoReplace(const std::string& name) {
    const int error = renameToNew(hidden_, name, folder_.get());
    if (error == 0) {
        hidden_.clear();
    }
    return error;
}

int Draft::renameOver(const std::string& name) {
    const int error = answer(::renameat(folder_.get(), hidden_.c_str(), folder_.get(), name.c_str()));
    if (error == 0) {
        hidden_.clear();
    }
    return error;
}

int Draft::renameOverReserved(const std::string& name) {
    if (!createNew(folder_.get(), name)) {
        return errno;
    }
    const int error = renameOver(name);
    if (error != 0) {
        ::unlinkat(folder_.get(), name.c_str(), 0);
    }
    return error;
}

void syncFolder(const std::filesystem::path& folder) {
    syncOpened(Descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)));
}

}  // namespace kzq
