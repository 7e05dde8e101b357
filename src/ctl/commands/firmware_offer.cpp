#include "ctl/commands/firmware_offer.h"

#include <memory>
#include <utility>

#include "ctl/speech/format.h"
#include "platform/plain_file.h"
#include "updates/firmware_source.h"
#include "updates/firmware_version.h"
#include "updates/update_log.h"

namespace kzq::ctl {
namespace {

using Kind = Trouble::Kind;

bool isUnknown(const FirmwareVersion& version) {
    return version.major == 0 && version.minor == 0;
}

Trouble noted(Trouble trouble) {
    logUpdates(trouble.words);
    trouble.words = printable(trouble.words);
    return trouble;
}

}  // namespace

Result<std::string> installedFirmware(Pedal& pedal) {
    if (pedal.link()->factoryBlank()) {
        return std::string();
    }
    return pedal.status().map([](const Status& status) { return printable(status.version); });
}

Result<FirmwareOffer> fetchOffer(const Environment& environment, const std::string& installed) {
    const auto present = FirmwareVersionFromString(installed);
    if (!installed.empty() && isUnknown(present)) {
        return Trouble{Kind::unknownVersion, {}, 0, installed};
    }
    const FirmwareSource source(*environment.http, {environment.manifest, environment.keys},
                                environment.home);
    auto entry = source.newest();
    if (!entry) {
        return noted(std::move(entry.error()));
    }
    FirmwareOffer offer{std::move(*entry), std::nullopt};
    if (!installed.empty() && !(present < FirmwareVersionFromString(offer.entry.version))) {
        return offer;
    }
    auto image = source.image(offer.entry);
    if (!image) {
        return noted(std::move(image.error()));
    }
    offer.image = std::move(*image);
    return offer;
}

Result<FirmwareOffer> askForOffer(Pedal& pedal, const Environment& environment,
                                  const std::string& installed) {
    const auto asked = std::make_shared<Result<FirmwareOffer>>(Trouble{Kind::cancelled});
    const bool came =
        pedal.aside([asked, installed, &environment] { *asked = fetchOffer(environment, installed); });
    return came ? std::move(*asked) : pedal.stopped().value();
}

Result<FirmwareImage> readImage(const std::filesystem::path& path) {
    auto image = readPlainFile(path, largestFirmware, Links::followed);
    if (!image) {
        const bool tooLong = image.error().kind == Kind::tooLarge;
        return Trouble{tooLong ? Kind::imageTooLong : Kind::imageUnreadable, path.string()};
    }
    if (image->empty()) {
        return Trouble{Kind::imageEmpty, path.string()};
    }
    return image;
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
