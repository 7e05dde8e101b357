#include "updates/maker.h"

#include <system_error>

#include "updates/build_settings.h"

namespace kzq {
namespace {

constexpr std::string_view normalFeed = "/assets/7306/software/mac/_.xml";
constexpr std::string_view stagingFeed = "/assets/7306/staging/software/mac/_.xml";

bool isUnreserved(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

std::string percentEncoded(std::string_view text) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text) {
        if (isUnreserved(c)) {
            encoded += c;
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        encoded += '%';
        encoded += digits[byte >> 4U];
        encoded += digits[byte & 0xFU];
    }
    return encoded;
}

}  // namespace

std::string makerAddress(std::string_view path, std::string_view host) {
    return "https://" + std::string(host.empty() ? build::host : host) + std::string(path);
}

std::string websiteAddress(std::string_view host) {
    return makerAddress("/", host);
}

std::string firmwareManifestAddress(std::string_view host) {
    return makerAddress("/assets/7306/firmware/_.json", host);
}

std::string softwareFeedAddress(Feed feed, std::string_view host) {
    return makerAddress(feed == Feed::staging ? stagingFeed : normalFeed, host);
}

std::string softwareFeedAddress(const std::filesystem::path& home, std::string_view host) {
    std::error_code error;
    const bool staging =
        !home.empty() && std::filesystem::exists(home / "Desktop/com.kzq.7306.staging", error);
    return softwareFeedAddress(staging ? Feed::staging : Feed::normal, host);
}

std::string addressBeside(std::string_view address, std::string_view name) {
    return std::string(address.substr(0, address.rfind('/') + 1)) + percentEncoded(name);
}

}  // namespace kzq
