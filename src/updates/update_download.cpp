#include "updates/update_download.h"

#include "platform/digest.h"
#include "platform/plain_file.h"
#include "updates/app_image.h"
#include "updates/signed_text.h"
#include "words/words.h"

namespace kzq {
namespace {

Trouble unverified(const char* what) {
    return {Trouble::Kind::unverified, what};
}

}  // namespace

UpdateDownload::UpdateDownload(std::filesystem::path place)
    : place_(std::move(place)), part_(place_.string() + ".part") {}

UpdateDownload::~UpdateDownload() {
    part_.remove();
}

Result<void> UpdateDownload::open() {
    if (!isPlaceForFile(place_)) {
        return Trouble{Trouble::Kind::file, english("the path for the download is not a file")};
    }
    return part_.open().and_then([this] { return part_.clear(); });
}

Result<void> UpdateDownload::verify(const FeedItem& item, std::span<const UpdateKey> keys) {
    verified_ = false;
    if (!isSignedByOne(keys, item)) {
        return unverified(english("the signature of the update is wrong"));
    }
    // Verifies what is on the disk, not what came over the network.
    const auto bytes = part_.read(item.length);
    if (!bytes || item.length == 0 || bytes->size() != item.length) {
        return unverified(english("the length of the update is not the stated one"));
    }
    if (!part_.isStillOurs() || SHA256String(*bytes) != item.sha256) {
        return unverified(english("the update is not the one that was signed"));
    }
    if (packageKindOf(item) == PackageKind::appImage && !isAppImage(*bytes)) {
        return unverified(english("the update is not an AppImage"));
    }
    verified_ = true;
    return {};
}

Result<void> UpdateDownload::seal(std::filesystem::perms permissions) {
    return verified_ ? part_.seal(permissions) : unverified(english("the update is not verified"));
}

Result<void> UpdateDownload::place(std::filesystem::perms permissions) {
    if (!verified_ || !part_.isStillOurs() || !isPlaceForFile(place_)) {
        return unverified(english("the update is not verified"));
    }
    return part_.place(place_, permissions);
}

}  // namespace kzq
