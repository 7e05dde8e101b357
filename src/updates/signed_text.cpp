#include "updates/signed_text.h"

#include <algorithm>
#include <array>

namespace kzq {
namespace {

constexpr std::size_t digestDigits = 64;

bool isDigest(const std::string& text) {
    return text.size() == digestDigits && text.find_first_not_of("0123456789abcdef") == std::string::npos;
}

/// Nothing if a value could be taken for two lines.
template <std::size_t count>
std::optional<std::string> lines(const std::array<std::string, count>& values) {
    std::string text;
    for (const auto& value : values) {
        if (std::ranges::any_of(value, [](char c) { return c >= 0 && c < ' '; })) {
            return std::nullopt;
        }
        text += value + "\n";
    }
    return text;
}

bool isSigned(std::span<const UpdateKey> keys, const std::optional<std::string>& text,
              const std::string& signature) {
    const auto made = updateSignatureFrom(signature);
    return text && made &&
           isSignedByOne(keys, *made, {reinterpret_cast<const std::uint8_t*>(text->data()), text->size()});
}

std::string nameOf(PackageKind kind) {
    return kind == PackageKind::appImage ? "AppImage" : "deb";
}

}  // namespace

std::optional<std::string> signedText(const FirmwareEntry& entry) {
    if (!isComplete(entry) || !isDigest(entry.sha256) || entry.serial == 0) {
        return std::nullopt;
    }
    return lines(std::array<std::string, 6>{"7306 firmware", entry.name, std::to_string(entry.size),
                                            entry.sha256, entry.version, std::to_string(entry.serial)});
}

std::optional<std::string> signedText(const FeedItem& item) {
    const auto kind = packageKindOf(item);
    if (kind == PackageKind::other || item.length == 0 || !isDigest(item.sha256)) {
        return std::nullopt;
    }
    return lines(std::array<std::string, 8>{"7306 package", item.version, nameOf(kind), item.os, item.channel,
                                            item.minimumSystem, std::to_string(item.length), item.sha256});
}

bool isSignedByOne(std::span<const UpdateKey> keys, const FirmwareEntry& entry) {
    return isSigned(keys, signedText(entry), entry.signature);
}

bool isSignedByOne(std::span<const UpdateKey> keys, const FeedItem& item) {
    return isSigned(keys, signedText(item), item.signature);
}

}  // namespace kzq
