#pragma once

#include <QByteArray>
#include <cstdint>
#include <span>

namespace kzq {

enum class DocumentType {
    refused,
    plain  ///< one in front of the root is passed over, unless it declares entities
};

/// `document` for an XML reader; null when it is not well-formed or has a document type that is not allowed.
/// Every token is looked at first, since Qt's reader also takes document types from inside the root, and with
/// them entities.
QByteArray soundXml(std::span<const std::uint8_t> document, DocumentType type);

}  // namespace kzq
