#pragma once

#include <QByteArray>
#include <cstdint>
#include <span>

namespace kzq {

enum class DocumentType {
    refused,
    plain  ///< one before the root is skipped, unless it declares entities
};

/// `document` for an XML reader; null if it is not well-formed or has a document type that is not allowed.
/// Every token is checked first, since Qt's reader also accepts document types inside the root, and with them
/// entities.
QByteArray soundXml(std::span<const std::uint8_t> document, DocumentType type);

}  // namespace kzq
