#include "platform/digest.h"

#include <QByteArrayView>
#include <QCryptographicHash>
#include <limits>

namespace kzq {

std::optional<std::vector<std::uint8_t>> hash(std::span<const std::uint8_t> bytes, int algorithm) {
    if (bytes.data() == nullptr) {
        return std::nullopt;
    }
    const std::size_t counted = bytes.size() & std::numeric_limits<std::uint32_t>::max();
    const auto method = algorithm == 0 ? QCryptographicHash::Md5 : QCryptographicHash::Sha256;
    const QByteArrayView view(bytes.data(), static_cast<qsizetype>(counted));
    QCryptographicHash digester(method);
    digester.addData(view);
    const QByteArray digest = digester.result();
    return std::vector<std::uint8_t>(digest.begin(), digest.end());
}

std::optional<std::vector<std::uint8_t>> MD5(std::span<const std::uint8_t> bytes) {
    return hash(bytes, 0);
}

std::optional<std::vector<std::uint8_t>> SHA256(std::span<const std::uint8_t> bytes) {
    return hash(bytes, 1);
}

namespace {

std::optional<std::string> hexadecimal(const std::optional<std::vector<std::uint8_t>>& digest) {
    if (!digest) {
        return std::nullopt;
    }
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : *digest) {
        text += digits[byte >> 4U];
        text += digits[byte & 0xFU];
    }
    return text;
}

}  // namespace

std::optional<std::string> MD5String(std::span<const std::uint8_t> bytes) {
    return hexadecimal(MD5(bytes));
}

std::optional<std::string> SHA256String(std::span<const std::uint8_t> bytes) {
    return hexadecimal(SHA256(bytes));
}

}  // namespace kzq
