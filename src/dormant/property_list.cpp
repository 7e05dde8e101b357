#include "dormant/property_list.h"

#include <QXmlStreamReader>

#include "updates/xml_document.h"

namespace kzq {
namespace {

/// The value at the reader's position: its text, or nothing if it is not a string. Moves past it.
std::optional<std::string> readValue(QXmlStreamReader& xml) {
    if (xml.name() != QLatin1String("string")) {
        xml.skipCurrentElement();
        return std::nullopt;
    }
    return xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement).toStdString();
}

PropertyTexts readDictionary(QXmlStreamReader& xml) {
    PropertyTexts texts;
    while (xml.readNextStartElement()) {
        if (xml.name() != QLatin1String("key")) {
            xml.raiseError("a value without a key");
            break;
        }
        const auto key = xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement).toStdString();
        if (!xml.readNextStartElement()) {
            xml.raiseError("a key without a value");
            break;
        }
        texts.erase(key);
        if (const auto text = readValue(xml)) {
            texts.emplace(key, *text);
        }
    }
    return texts;
}

bool readRoot(QXmlStreamReader& xml) {
    return xml.readNextStartElement() && xml.name() == QLatin1String("plist") && xml.readNextStartElement() &&
           xml.name() == QLatin1String("array");
}

}  // namespace

std::optional<std::vector<PropertyTexts>> propertyListArray(std::span<const std::uint8_t> document) {
    const auto sound = soundXml(document, DocumentType::plain);
    QXmlStreamReader xml(sound);
    if (!readRoot(xml)) {
        return std::nullopt;
    }
    std::vector<PropertyTexts> elements;
    while (xml.readNextStartElement()) {
        if (xml.name() == QLatin1String("dict")) {
            elements.push_back(readDictionary(xml));
        } else {
            xml.skipCurrentElement();
            elements.emplace_back();
        }
    }
    // The document is well-formed; an error means that it is not a property list.
    if (xml.hasError()) {
        return std::nullopt;
    }
    return elements;
}

}  // namespace kzq
