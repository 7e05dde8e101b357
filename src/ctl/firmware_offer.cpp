#include "ctl/firmware_offer.h"

#include <memory>
#include <utility>

#include "ctl/format.h"
#include "platform/plain_file.h"
#include "updates/firmware_updates.h"
#include "updates/firmware_version.h"

namespace kzq::ctl {
namespace {

bool isUnknown(const FirmwareVersion& version) {
    return version.major == 0 && version.minor == 0;
}

std::string serverSentence(const HttpResult& answer) {
    const std::string reason = " (" + printable(answer.reason) + "). ";
    switch (answer.failure) {
        case HttpFailure::network:
        case HttpFailure::timeout:
            return "The update server could not be reached" + reason +
                   "Check the internet connection and try again.";
        case HttpFailure::untrusted:
            return "The update server could not prove its identity" + reason +
                   "Check the computer's clock and its certificates.";
        default:
            return "The update server did not answer as expected" + reason + "Try again later.";
    }
}

std::optional<FirmwareEntry> newestEntry(const Environment& environment, Explanation& problem) {
    HttpRequest request;
    request.url = environment.manifest;
    request.limits.bytes = largestManifest;
    const auto manifest = environment.http->fetch(request);
    if (!manifest) {
        problem = {ExitCode::noDownload, serverSentence(manifest)};
        return std::nullopt;
    }
    auto entry = newestFirmwareEntry(manifest.body);
    if (!entry || !isComplete(*entry) || isUnknown(FirmwareVersionFromString(entry->version))) {
        problem = {ExitCode::noDownload,
                   "The update server did not list any usable firmware. Try again later."};
        return std::nullopt;
    }
    return entry;
}

/// The image of `entry`, verified: from the cache, or fetched and put there.
std::optional<FirmwareImage> fetchImage(const Environment& environment, const FirmwareEntry& entry,
                                        Explanation& problem) {
    FirmwareUpdates updates({.executor = environment.executor,
                             .http = *environment.http,
                             .factoryBlank = {},
                             .version = {},
                             .softwareVersion = {},
                             .home = environment.home,
                             .manifest = environment.manifest,
                             .showHeadline = {},
                             .appendNotes = {}});
    updates.setup();
    if (!updates.initialized()) {
        problem = {ExitCode::fileError,
                   "Could not create the folder for downloaded firmware in your home folder."};
        return std::nullopt;
    }
    auto image = updates.cached(entry);
    if (!image) {
        image = updates.download(entry);
    }
    if (!image) {
        problem = {
            ExitCode::noDownload,
            "The firmware could not be downloaded, verified and stored. Try again later; --verbose shows "
            "details."};
    }
    return image;
}

}  // namespace

std::optional<FirmwareOffer> fetchOffer(const Environment& environment, const std::string& installed,
                                        Explanation& problem) {
    const auto present = FirmwareVersionFromString(installed);
    if (!installed.empty() && isUnknown(present)) {
        problem = {ExitCode::pedalRefused, "The pedal reports an unknown firmware version (" + installed +
                                               "), so it cannot be compared with the newest."};
        return std::nullopt;
    }
    auto entry = newestEntry(environment, problem);
    if (!entry) {
        return std::nullopt;
    }
    FirmwareOffer offer{std::move(*entry), std::nullopt};
    if (!installed.empty() && !(present < FirmwareVersionFromString(offer.entry.version))) {
        return offer;
    }
    offer.image = fetchImage(environment, offer.entry, problem);
    return offer.image ? std::optional(std::move(offer)) : std::nullopt;
}

std::optional<FirmwareOffer> askForOffer(PedalWorker& pedal, const Environment& environment,
                                         const std::string& installed, Explanation& problem) {
    struct Asked {
        std::optional<FirmwareOffer> offer;
        Explanation problem;
    };
    const auto asked = std::make_shared<Asked>();
    const bool came = pedal.attempt([asked, installed, &environment] {
        asked->offer = fetchOffer(environment, installed, asked->problem);
    });
    if (!came) {
        return std::nullopt;
    }
    problem = asked->problem;
    return std::move(asked->offer);
}

std::optional<FirmwareImage> readImage(const std::filesystem::path& path, Explanation& problem) {
    const std::string name = "\"" + path.string() + "\" ";
    auto image = readPlainFile(path, largestFirmware, Links::followed);
    if (image && !image->empty()) {
        return std::move(*image);
    }
    const char* const trouble = image ? "is empty."
                                : image.error().kind == Trouble::Kind::tooLarge
                                    ? "is larger than firmware can be (50,000,000 bytes)."
                                    : "cannot be read.";
    problem = {ExitCode::fileError, name + trouble};
    return std::nullopt;
}

std::string noteText(std::string_view line) {
    constexpr char escape = '\x7f';
    constexpr char twoBytes = '\xc2';  // followed by 80 to 9f: control characters beyond ASCII
    constexpr char lastControl = '\x9f';
    std::string text;
    for (const char c : line) {
        const bool beyond = !text.empty() && text.back() == twoBytes && c <= lastControl;
        const bool control = (c >= 0 && c < ' ') || c == escape;
        if (beyond) {
            text.pop_back();
        }
        text += beyond || control ? '?' : c;
    }
    return text;
}

}  // namespace kzq::ctl
