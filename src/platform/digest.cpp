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

std::optional<std::string> hexadecimal(const std::optional<std::vector<std::uint8_t>>& digest) {
    if (!digest) {
        return std::nullopt;
    }
    return QByteArrayView(digest->data(), static_cast<qsizetype>(digest->size()))
        .toByteArray()
        .toHex()
        .toStdString();
}

}  // namespace

std::optional<std::string> MD5String(std::span<const std::uint8_t> bytes) {
    return hexadecimal(MD5(bytes));
}

std::optional<std::string> SHA256String(std::span<const std::uint8_t> bytes) {
    return hexadecimal(SHA256(bytes));
}

std::string SHA256StringOf(const std::function<std::span<const std::uint8_t>()>& next) {
    QCryptographicHash digester(QCryptographicHash::Sha256);
    for (auto piece = next(); !piece.empty(); piece = next()) {
        digester.addData(QByteArrayView(piece.data(), static_cast<qsizetype>(piece.size())));
    }
    return digester.result().toHex().toStdString();
}

MD5Sum::MD5Sum() : digester_(std::make_unique<QCryptographicHash>(QCryptographicHash::Md5)) {}
MD5Sum::~MD5Sum() = default;

void MD5Sum::add(std::span<const std::uint8_t> bytes) {
    digester_->addData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

std::string MD5Sum::text() const {
    return digester_->result().toHex().toStdString();
}

}  // namespace kzq
