#include "updates/update_download.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/write_all.h"
#include "updates/replace_file.h"

namespace kzq {
namespace {

constexpr mode_t privateMode = 0600;

}  // namespace

UpdateDownload::UpdateDownload(std::filesystem::path place)
    : place_(std::move(place)), part_(place_.string() + ".part") {}

UpdateDownload::~UpdateDownload() {
    if (file_ && isStillOurs()) {
        ::unlink(part_.c_str());
    }
}

bool UpdateDownload::fail(const std::string& what, int error) {
    reason_ = error == 0 ? what : what + ": " + std::generic_category().message(error);
    return false;
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

bool UpdateDownload::open() {
    if (!isPlaceForFile(place_) || !isPlaceForFile(part_)) {
        return fail("the path for the update is not a file", 0);
    }
    Descriptor file(
        ::open(part_.c_str(), O_CREAT | O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, privateMode));
    if (!file) {
        return fail("the update cannot be stored", errno);
    }
    if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        return fail("another program is downloading the update", 0);
    }
    file_ = std::move(file);
    if (!isStillOurs()) {
        file_.close();
        return fail("another program is downloading the update", 0);
    }
    if (!isPrivate()) {
        file_.close();
        return fail("the file at the path for the update belongs to another user", 0);
    }
    return ::ftruncate(file_.get(), 0) == 0 || fail("the update cannot be stored", errno);
}

bool UpdateDownload::append(std::span<const std::uint8_t> bytes) {
    const int error = writeAll(file_.get(), bytes);
    return error == 0 || fail("the update cannot be stored", error);
}

bool UpdateDownload::verify(const FeedItem& item, std::span<const UpdateKey> keys) {
    verified_ = false;
    if (::fsync(file_.get()) != 0) {
        return fail("the update cannot be stored", errno);
    }
    const auto signature = updateSignatureFrom(item.signature);
    if (!signature) {
        return fail("the update is not signed", 0);
    }
    // Verifies what is on the disk, not what came over the network.
    const auto bytes = readPlainFile(file_.get(), item.length);
    if (!bytes || item.length == 0 || bytes->size() != item.length) {
        return fail("the length of the update is not the stated one", 0);
    }
    verified_ = isStillOurs() && isSignedByOne(keys, *signature, *bytes);
    return verified_ || fail("the signature of the update is wrong", 0);
}

bool UpdateDownload::place(std::filesystem::perms permissions) {
    if (!verified_ || !isStillOurs() || !isPlaceForFile(place_)) {
        return fail("the update is not verified", 0);
    }
    if (::fchmod(file_.get(), static_cast<mode_t>(permissions)) != 0 || ::fsync(file_.get()) != 0 ||
        ::rename(part_.c_str(), place_.c_str()) != 0) {
        return fail("the update cannot be installed", errno);
    }
    file_.close();
    syncFolder(place_.parent_path());
    return true;
}

}  // namespace kzq
