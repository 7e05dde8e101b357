#include "updates/firmware_source.h"

#include <system_error>
#include <utility>

#include "platform/digest.h"
#include "platform/left_drafts.h"
#include "updates/firmware_version.h"
#include "updates/maker.h"
#include "updates/signed_text.h"

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

/// As `removeOldDrafts` expects it; another entry of the same name has another part.
std::string partName(const FirmwareEntry& entry) {
    const auto what =
        entry.name + "\n" + entry.hash + "\n" + entry.sha256 + "\n" + std::to_string(entry.size);
    const ByteView bytes(reinterpret_cast<const std::uint8_t*>(what.data()), what.size());
    return ".kzq7306-" + MD5String(bytes).value_or("") + ".part";
}

/// Whether the rest may come another time.
bool canGoOn(HttpFailure failure) {
    return failure == HttpFailure::network || failure == HttpFailure::timeout ||
           failure == HttpFailure::cutShort || failure == HttpFailure::cancelled;
}

}  // namespace

FirmwareSource::FirmwareSource(HttpClient& http, FirmwareServer server, const std::filesystem::path& home,
                               const std::atomic<bool>* cancelled)
    : http_(http),
      server_(std::move(server)),
      cache_(FirmwareCache::folderIn(home)),
      parts_(updatesFolderIn(home) / "downloads"),
      floor_(home),
      cancelled_(cancelled) {}

Result<FirmwareEntry> FirmwareSource::newest() const {
    HttpRequest request;
    request.url = server_.manifest;
    request.limits = {largestManifest, server_.total};
    request.cancelled = cancelled_;
    const auto manifest = http_.fetch(request);
    if (!manifest) {
        return serverTrouble(server_.manifest, manifest);
    }
    auto entry = newestFirmwareEntry(manifest.body);
    if (!entry) {
        return Trouble{Kind::badManifest, {}, 0, "the manifest is not a list that ends with an entry"};
    }
    if (entry->name.empty() || FirmwareVersionFromString(entry->version) == FirmwareVersion{}) {
        return unusable("name or version");
    }
    return vouch(*entry).map([&entry] { return std::move(*entry); });
}

/// Without pinned keys nothing beyond the MD5 counts.
Result<void> FirmwareSource::vouch(FirmwareEntry& entry) const {
    if (server_.keys.empty()) {
        entry.sha256.clear();
        entry.serial = 0;
        entry.signature.clear();
        return {};
    }
    if (!isSignedByOne(server_.keys, entry)) {
        return Trouble{Kind::badManifest, {}, 0, "the manifest's last entry is not signed by the maker"};
    }
    if (entry.serial < floor_.firmwareSerial(server_.manifest)) {
        return Trouble{Kind::badManifest, {}, 0, "the manifest is older than one that was read before"};
    }
    floor_.raiseFirmwareSerial(server_.manifest, entry.serial);
    return {};
}

Result<FirmwareImage> FirmwareSource::image(const FirmwareEntry& entry, const Progress& progress) const {
    auto cached = cache_.cached(entry);
    return cached ? Result<FirmwareImage>(std::move(*cached)) : download(entry, progress);
}

Result<FirmwareImage> FirmwareSource::download(const FirmwareEntry& entry, const Progress& progress) const {
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
    std::error_code ignored;
    std::filesystem::create_directories(parts_, ignored);
    removeOldDrafts(parts_);
    PartFile part(parts_ / partName(entry));
    if (auto opened = part.open(); !opened) {
        return Trouble{Kind::unverified, {}, opened.error().error, unstored + ": " + opened.error().where};
    }
    const auto fetched = fetchInto(part, entry, progress);
    if (!fetched) {
        if (!canGoOn(fetched.failure)) {
            part.remove();
        }
        return Trouble{Kind::unverified, {}, 0, "no firmware image: " + fetched.reason};
    }
    auto image = part.read(entry.size);
    part.remove();
    if (!image || !isImageOf(entry, *image)) {
        return Trouble{Kind::unverified, {}, 0, "the firmware image does not match the manifest"};
    }
    if (!cache_.store(entry, *image)) {
        return Trouble{Kind::unverified, {}, 0, "the firmware image could not be stored"};
    }
    return std::move(*image);
}

HttpResult FirmwareSource::fetchInto(PartFile& part, const FirmwareEntry& entry,
                                     const Progress& progress) const {
    if (part.size() >= entry.size) {  // whole, but the program ended before it was looked at
        return {};
    }
    HttpRequest request;
    request.url = addressBeside(server_.manifest, entry.name);
    request.limits = {entry.size, std::chrono::milliseconds(0), server_.silence};
    request.offset = part.size();
    request.cancelled = cancelled_;
    request.progress = progress;
    bool stored = true;
    request.restart = [&] { stored = part.clear().has_value(); };
    request.sink = [&](ByteView bytes) { return stored && part.append(bytes).has_value(); };
    return http_.fetch(request);
}

}  // namespace kzq
