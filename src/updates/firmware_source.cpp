#include "updates/firmware_source.h"

#include <utility>

#include "updates/firmware_version.h"
#include "updates/maker.h"

namespace kzq {
namespace {

using Kind = Trouble::Kind;

Trouble serverTrouble(const std::string& address, const HttpResult& answer) {
    Trouble trouble{Kind::oddAnswer, address, 0, answer.reason};
    if (answer.failure == HttpFailure::network || answer.failure == HttpFailure::timeout) {
        trouble.kind = Kind::noServer;
    } else if (answer.failure == HttpFailure::untrusted) {
        trouble.kind = Kind::untrustedServer;
    }
    return trouble;
}

Trouble unusable(const char* why) {
    return {Kind::badManifest, {}, 0, std::string("the manifest's last entry has no usable ") + why};
}

}  // namespace

FirmwareSource::FirmwareSource(HttpClient& http, std::string manifest, const std::filesystem::path& home,
                               std::chrono::milliseconds limit, const std::atomic<bool>* cancelled)
    : http_(http),
      manifest_(std::move(manifest)),
      cache_(FirmwareCache::folderIn(home)),
      limit_(limit),
      cancelled_(cancelled) {}

Result<FirmwareEntry> FirmwareSource::newest() const {
    const auto manifest = fetch(manifest_, largestManifest);
    if (!manifest) {
        return serverTrouble(manifest_, manifest);
    }
    auto entry = newestFirmwareEntry(manifest.body);
    if (!entry) {
        return Trouble{Kind::badManifest, {}, 0, "the manifest is not a list that ends with an entry"};
    }
    if (entry->name.empty() || FirmwareVersionFromString(entry->version) == FirmwareVersion{}) {
        return unusable("name or version");
    }
    return std::move(*entry);
}

Result<FirmwareImage> FirmwareSource::image(const FirmwareEntry& entry) const {
    auto cached = cache_.cached(entry);
    return cached ? Result<FirmwareImage>(std::move(*cached)) : download(entry);
}

Result<FirmwareImage> FirmwareSource::download(const FirmwareEntry& entry) const {
    if (!isComplete(entry)) {
        return unusable("hash or size");
    }
    // Checked first: otherwise an obstacle would cost a whole download at every check.
    const auto unstored = "the firmware image cannot be stored at " + cache_.pathOf(entry).string();
    if (!cache_.prepare()) {
        return Trouble{Kind::noCache, {}, 0, unstored};
    }
    if (!cache_.isPlaceFor(entry)) {
        return Trouble{Kind::unverified, {}, 0, unstored};
    }
    auto image = fetch(addressBeside(manifest_, entry.name), entry.size);
    if (!image) {
        return Trouble{Kind::unverified, {}, 0, "no firmware image: " + image.reason};
    }
    if (!isImageOf(entry, image.body)) {
        return Trouble{Kind::unverified, {}, 0, "the firmware image does not match the manifest"};
    }
    if (!cache_.store(entry, image.body)) {
        return Trouble{Kind::unverified, {}, 0, "the firmware image could not be stored"};
    }
    return std::move(image.body);
}

HttpResult FirmwareSource::fetch(const std::string& url, std::uint64_t largest) const {
    HttpRequest request;
    request.url = url;
    request.limits = {largest, limit_};
    request.cancelled = cancelled_;
    return http_.fetch(request);
}

}  // namespace kzq
