#include "release/listings.h"

#include <QXmlStreamWriter>
#include <nlohmann/json.hpp>

#include "platform/digest.h"

namespace kzq::release {
namespace {

nlohmann::ordered_json jsonOf(const FirmwareEntry& entry) {
    nlohmann::ordered_json json{{"name", entry.name},       {"hash", entry.hash},
                                {"size", entry.size},       {"version", entry.version},
                                {"changes", entry.changes}, {"sha256", entry.sha256},
                                {"serial", entry.serial}};
    if (!entry.signature.empty()) {
        json["signature"] = entry.signature;
    }
    return json;
}

/// As a reader gives it back: without blanks around it, and with plain ends of lines.
QString text(const std::string& utf8) {
    return QString::fromStdString(utf8)
        .replace(QStringLiteral("\r\n"), QStringLiteral("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'))
        .trimmed();
}

void writeItem(QXmlStreamWriter& xml, const FeedItem& item) {
    const auto& shortVersion = item.shortVersion.empty() ? item.version : item.shortVersion;
    xml.writeStartElement("item");
    xml.writeTextElement("title", text(shortVersion));
    xml.writeTextElement("description", text(item.notes));
    xml.writeStartElement("enclosure");
    const std::pair<const char*, std::string> attributes[] = {{"url", item.url},
                                                              {"length", std::to_string(item.length)},
                                                              {"version", item.version},
                                                              {"shortVersionString", shortVersion},
                                                              {"sha256", item.sha256},
                                                              {"os", item.os},
                                                              {"channel", item.channel},
                                                              {"minimumSystemVersion", item.minimumSystem},
                                                              {"edSignature", item.signature}};
    for (const auto& [name, value] : attributes) {
        if (!value.empty()) {
            xml.writeAttribute(QLatin1String(name), text(value));
        }
    }
    xml.writeEndElement();
    xml.writeEndElement();
}

}  // namespace

FirmwareEntry describe(const std::string& name, ByteView image, const std::string& version,
                       const std::vector<std::string>& changes) {
    return {name,    MD5String(image).value_or(""),   image.size(), version,
            changes, SHA256String(image).value_or("")};
}

Result<std::string> withEntry(const std::string& manifest, const FirmwareEntry& entry) {
    auto list = nlohmann::ordered_json::parse(manifest.empty() ? "[]" : manifest, nullptr, false);
    if (!list.is_array()) {
        return Trouble{Trouble::Kind::badManifest, {}, 0, "the manifest is not a list"};
    }
    if (!list.empty() && list.back().contains("name") && list.back()["name"] == entry.name) {
        list.erase(list.size() - 1);
    }
    list.push_back(jsonOf(entry));
    return list.dump(2) + "\n";
}

std::string feedText(const std::vector<FeedItem>& items) {
    QString feed;
    QXmlStreamWriter xml(&feed);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement("rss");
    xml.writeAttribute("version", "2.0");
    xml.writeStartElement("channel");
    xml.writeTextElement("title", "7306 Loop Manager");
    for (const auto& item : items) {
        writeItem(xml, item);
    }
    xml.writeEndDocument();
    return feed.toStdString();
}

}  // namespace kzq::release
