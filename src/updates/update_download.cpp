#include "updates/update_download.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/draft.h"
#include "platform/plain_file.h"
#include "platform/write_all.h"

namespace kzq {
namespace {

constexpr mode_t privateMode = 0600;

Trouble trouble(const char* what, int error = 0) {
    return {Trouble::Kind::file, what, error};
}

Trouble notStored(int error) {
    return trouble("the update cannot be stored", error);
}

Trouble unverified(const char* what) {
    return {Trouble::Kind::unverified, what};
}

}  // namespace

UpdateDownload::UpdateDownload(std::filesystem::path place)
    : place_(std::move(place)), part_(place_.string() + ".part") {}

UpdateDownload::~UpdateDownload() {
    if (file_ && isStillOurs()) {
        ::unlink(part_.c_str());
    }
}

/// Whether the name still refers to the opened file.
bool UpdateDownload::isStillOurs() const {
    struct stat named {};
    struct stat opened {};
    return ::lstat(part_.c_str(), &named) == 0 && ::fstat(file_.get(), &opened) == 0 &&
           named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

/// Whether nobody else can change the file: a leftover may have another owner or a second name.
bool UpdateDownload::isPrivate() const {
    struct stat status {};
    return ::fstat(file_.get(), &status) == 0 && status.st_uid == ::geteuid() && status.st_nlink == 1 &&
           ::fchmod(file_.get(), privateMode) == 0;
}

Result<void> UpdateDownload::open() {
    if (!isPlaceForFile(place_) || !isPlaceForFile(part_)) {
        return trouble("the path for the update is not a file");
    }
    Descriptor file(
        ::open(part_.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, privateMode));
    if (!file) {
        return notStored(errno);
    }
    if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        return trouble("another program is downloading the update");
    }
    file_ = std::move(file);
    if (!isStillOurs()) {
        file_.close();
        return trouble("another program is downloading the update");
    }
    if (!isPrivate()) {
        file_.close();
        return trouble("the file at the path for the update belongs to another user");
    }
    if (::ftruncate(file_.get(), 0) != 0) {
        return notStored(errno);
    }
    return {};
}

Result<void> UpdateDownload::append(std::span<const std::uint8_t> bytes) {
    if (const int error = writeAll(file_.get(), bytes)) {
        return notStored(error);
    }
    return {};
}

Result<void> UpdateDownload::verify(const FeedItem& item, std::span<const UpdateKey> keys) {
    verified_ = false;
    if (::fsync(file_.get()) != 0) {
        return notStored(errno);
    }
    const auto signature = updateSignatureFrom(item.signature);
    if (!signature) {
        return unverified("the update is not signed");
    }
    // Verifies what is on the disk, not what came over the network.
    const auto bytes = readPlainFile(file_.get(), item.length);
    if (!bytes || item.length == 0 || bytes->size() != item.length) {
        return unverified("the length of the update is not the stated one");
    }
    verified_ = isStillOurs() && isSignedByOne(keys, *signature, *bytes);
    if (!verified_) {
        return unverified("the signature of the update is wrong");
    }
    return {};
}

Result<void> UpdateDownload::place(std::filesystem::perms permissions) {
    if (!verified_ || !isStillOurs() || !isPlaceForFile(place_)) {
        return unverified("the update is not verified");
    }
    if (::fchmod(file_.get(), static_cast<mode_t>(permissions)) != 0 || ::fsync(file_.get()) != 0 ||
        ::rename(part_.c_str(), place_.c_str()) != 0) {
        return trouble("the update cannot be installed", errno);
    }
    file_.close();
    syncFolder(place_.parent_path());
    return {};
}

}  // namespace kzq
