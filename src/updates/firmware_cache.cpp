#include "updates/firmware_cache.h"

#include <unistd.h>

#include <system_error>

#include "platform/digest.h"
#include "platform/left_drafts.h"
#include "platform/plain_file.h"
#include "platform/process.h"
#include "platform/replace_file.h"
#include "updates/update_log.h"

namespace kzq {

std::filesystem::path updatesFolderIn(const std::filesystem::path& home) {
    return home.empty() ? home : programFolderIn(home) / "updates";
}

bool isImageOf(const FirmwareEntry& entry, std::span<const std::uint8_t> image) {
    return isComplete(entry) && image.size() == entry.size && MD5String(image) == entry.hash &&
           (entry.sha256.empty() || SHA256String(image) == entry.sha256);
}

std::filesystem::path FirmwareCache::folderIn(const std::filesystem::path& home) {
    return home.empty() ? home : updatesFolderIn(home) / "firmware";
}

bool FirmwareCache::prepare() const {
    if (folder_.empty()) {
        return false;
    }
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (error || !std::filesystem::is_directory(folder_, error)) {
        return false;
    }
    removeDeadDrafts(folder_);
    return true;
}

std::optional<FirmwareImage> FirmwareCache::cached(const FirmwareEntry& entry) const {
    if (folder_.empty() || !isComplete(entry)) {
        return std::nullopt;
    }
    const auto path = pathOf(entry);
    if (!isPlainFile(path)) {
        return std::nullopt;
    }
    auto image = readPlainFile(path, entry.size, Links::refused);
    if (!image || !isImageOf(entry, *image)) {
        logUpdates("removed a firmware file that does not match the manifest: " + path.string());
        ::unlink(path.c_str());
        return std::nullopt;
    }
    return std::move(*image);
}

bool FirmwareCache::isPlaceFor(const FirmwareEntry& entry) const {
    return !folder_.empty() && isComplete(entry) && ::access(folder_.c_str(), W_OK | X_OK) == 0 &&
           isPlaceForFile(pathOf(entry));
}

bool FirmwareCache::store(const FirmwareEntry& entry, std::span<const std::uint8_t> image) const {
    if (folder_.empty() || !isImageOf(entry, image)) {
        return false;
    }
    const auto stored = replaceFile(folder_, entry.name, image);
    if (!stored) {
        logUpdates("firmware not stored: " + std::generic_category().message(stored.error().error));
    }
    return stored.has_value();
}

}  // namespace kzq
