#include "updates/xml_document.h"

#include <QXmlStreamReader>

namespace kzq {

QByteArray soundXml(std::span<const std::uint8_t> document, DocumentType type) {
    QByteArray bytes(reinterpret_cast<const char*>(document.data()), static_cast<qsizetype>(document.size()));
    QXmlStreamReader xml(bytes);
    bool inFront = true;
    while (!xml.atEnd()) {
        xml.readNext();
        inFront = inFront && !xml.isStartElement();
        const bool allowed = type == DocumentType::plain && inFront && xml.entityDeclarations().isEmpty();
        if (xml.isDTD() && !allowed) {
            return {};
        }
    }
    return xml.hasError() ? QByteArray() : bytes;
}

}  // namespace kzq
