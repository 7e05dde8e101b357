#include "platform/digest.h"

#include <QByteArrayView>
#include <QCryptographicHash>
#include <limits>
#include <string_view>

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

std::string digitsOf(std::span<const std::uint8_t> digest) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : digest) {
        text += digits[byte >> 4U];
        text += digits[byte & 0xFU];
    }
    return text;
}

std::optional<std::string> hexadecimal(const std::optional<std::vector<std::uint8_t>>& digest) {
    return digest ? std::optional(digitsOf(*digest)) : std::nullopt;
}

}  // namespace

std::optional<std::string> MD5String(std::span<const std::uint8_t> bytes) {
    return hexadecimal(MD5(bytes));
}

std::optional<std::string> SHA256String(std::span<const std::uint8_t> bytes) {
    return hexadecimal(SHA256(bytes));
}

RunningSHA256::RunningSHA256() : hash_(std::make_unique<QCryptographicHash>(QCryptographicHash::Sha256)) {}

RunningSHA256::~RunningSHA256() = default;

void RunningSHA256::add(std::span<const std::uint8_t> piece) {
    hash_->addData(QByteArrayView(piece.data(), static_cast<qsizetype>(piece.size())));
}

std::string RunningSHA256::hexadecimal() const {
    const auto digest = hash_->result();
    return digitsOf(std::vector<std::uint8_t>(digest.begin(), digest.end()));
}

}  // namespace kzq
