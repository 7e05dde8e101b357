#include "updates/part_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "platform/draft.h"
#include "platform/plain_file.h"
#include "platform/write_all.h"
#include "words/words.h"

namespace kzq {
namespace {

constexpr mode_t privateMode = 0600;

Trouble trouble(const char* what, int error = 0) {
    return {Trouble::Kind::file, what, error};
}

Trouble notStored(int error) {
    return trouble(english("the download cannot be stored"), error);
}

}  // namespace

bool PartFile::isStillOurs() const {
    return isStillNamed(AT_FDCWD, path_, file_.get());
}

/// Whether nobody else can change the file: a leftover may have another owner or a second name.
bool PartFile::isPrivate() const {
    struct stat status {};
    return ::fstat(file_.get(), &status) == 0 && status.st_uid == ::geteuid() && status.st_nlink == 1 &&
           ::fchmod(file_.get(), privateMode) == 0;
}

Result<void> PartFile::open() {
    if (!isPlaceForFile(path_)) {
        return trouble(english("the path for the download is not a file"));
    }
    Descriptor file(::open(path_.c_str(), O_CREAT | O_RDWR | O_APPEND | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK,
                           privateMode));
    if (!file) {
        return notStored(errno);
    }
    const bool locked = ::flock(file.get(), LOCK_EX | LOCK_NB) == 0;
    file_ = std::move(file);
    if (!locked || !isStillOurs()) {
        file_.close();
        return trouble(english("another program is downloading the same file"));
    }
    if (!isPrivate()) {
        file_.close();
        return trouble(english("the file at the path for the download belongs to another user"));
    }
    return {};
}

Result<void> PartFile::clear() {
    return ::ftruncate(file_.get(), 0) == 0 ? Result<void>() : notStored(errno);
}

Result<void> PartFile::append(ByteView bytes) {
    const int error = writeAll(file_.get(), bytes);
    return error == 0 ? Result<void>() : notStored(error);
}

Result<Bytes> PartFile::read(std::uint64_t limit) const {
    return readPlainFile(file_.get(), limit);
}

std::uint64_t PartFile::size() const {
    struct stat status {};
    return ::fstat(file_.get(), &status) == 0 ? static_cast<std::uint64_t>(status.st_size) : 0;
}

Result<void> PartFile::seal(std::filesystem::perms permissions) {
    const auto same = "/proc/self/fd/" + std::to_string(file_.get());
    Descriptor reader(::open(same.c_str(), O_RDONLY | O_CLOEXEC));
    const auto mode = static_cast<mode_t>(permissions | std::filesystem::perms::owner_write);
    // On the disk before anything makes room for it: a disk that is full now changes nothing.
    if (!reader || ::fchmod(reader.get(), mode) != 0 || ::fsync(reader.get()) != 0) {
        return trouble(english("the download cannot be completed"), errno);
    }
    std::exchange(file_, std::move(reader)).close();  // which ends the lock
    if (::flock(file_.get(), LOCK_EX | LOCK_NB) != 0) {
        file_.close();
        return trouble(english("another program is downloading the same file"));
    }
    return {};
}

Result<void> PartFile::place(const std::filesystem::path& name, std::filesystem::perms permissions) {
    if (::fchmod(file_.get(), static_cast<mode_t>(permissions)) != 0 || ::fsync(file_.get()) != 0 ||
        ::rename(path_.c_str(), name.c_str()) != 0) {
        return trouble(english("the download cannot be moved into place"), errno);
    }
    file_.close();
    syncFolder(name.parent_path());
    return {};
}

void PartFile::remove() {
    if (file_ && isStillOurs()) {
        ::unlink(path_.c_str());
    }
    file_.close();
}

}  // namespace kzq
