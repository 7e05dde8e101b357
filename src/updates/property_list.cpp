#include "updates/property_list.h"

#include <QXmlStreamReader>

namespace kzq {
namespace {

/// The value the reader stands on: its text, or nothing when it is not a string. Moves behind it.
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

/// Moves to the root array. A document type is usual here, one that declares entities is not.
bool readPreamble(QXmlStreamReader& xml) {
    while (!xml.atEnd() && !xml.isStartElement()) {
        xml.readNext();
        if (xml.isDTD() && !xml.entityDeclarations().isEmpty()) {
            return false;
        }
    }
    return xml.isStartElement() && xml.name() == QLatin1String("plist") && xml.readNextStartElement() &&
           xml.name() == QLatin1String("array");
}

}  // namespace

std::optional<std::vector<PropertyTexts>> propertyListArray(std::span<const std::uint8_t> document) {
    QXmlStreamReader xml(
        QByteArray(reinterpret_cast<const char*>(document.data()), static_cast<qsizetype>(document.size())));
    if (!readPreamble(xml)) {
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
    while (!xml.atEnd()) {
        xml.readNext();
    }
    if (xml.hasError()) {
        return std::nullopt;
    }
    return elements;
}

}  // namespace kzq
