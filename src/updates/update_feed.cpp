#include "updates/update_feed.h"

#include <QXmlStreamReader>
#include <charconv>
#include <utility>

#include "updates/app_version.h"
#include "updates/xml_document.h"

namespace kzq {
namespace {

constexpr auto textOnly = QXmlStreamReader::IncludeChildElements;

std::uint64_t lengthOf(const std::string& text) {
    std::uint64_t length = 0;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, length);
    return result.ec == std::errc{} && result.ptr == end && length <= largestPackage ? length : 0;
}

void setOnce(std::string& member, const QStringView text) {
    if (member.empty()) {
        member = text.trimmed().toString().toStdString();
    }
}

/// The member for a name in the feed, attribute or element; null for none.
std::string* memberFor(FeedItem& item, QStringView name) {
    static constexpr std::pair<const char*, std::string FeedItem::*> members[] = {
        {"version", &FeedItem::version},
        {"shortVersionString", &FeedItem::shortVersion},
        {"edSignature", &FeedItem::signature},
        {"sha256", &FeedItem::sha256},
        {"os", &FeedItem::os},
        {"channel", &FeedItem::channel},
        {"minimumSystemVersion", &FeedItem::minimumSystem}};
    for (const auto& [known, member] : members) {
        if (name == QLatin1String(known)) {
            return &(item.*member);
        }
    }
    return nullptr;
}

void readEnclosure(QXmlStreamReader& xml, FeedItem& item) {
    for (const auto& attribute : xml.attributes()) {
        if (auto* const member = memberFor(item, attribute.name())) {
            setOnce(*member, attribute.value());
        } else if (attribute.name() == QLatin1String("url")) {
            setOnce(item.url, attribute.value());
        } else if (attribute.name() == QLatin1String("length")) {
            item.length = lengthOf(attribute.value().toString().toStdString());
        }
    }
    xml.skipCurrentElement();
}

FeedItem readItem(QXmlStreamReader& xml) {
    FeedItem item;
    while (xml.readNextStartElement()) {
        if (auto* const member = memberFor(item, xml.name())) {
            setOnce(*member, xml.readElementText(textOnly));
        } else if (xml.name() == QLatin1String("description")) {
            setOnce(item.notes, xml.readElementText(textOnly));
        } else if (xml.name() == QLatin1String("enclosure")) {
            readEnclosure(xml, item);
        } else {
            xml.skipCurrentElement();
        }
    }
    if (item.shortVersion.empty()) {
        item.shortVersion = item.version;
    }
    return item;
}

std::vector<FeedItem> readChannels(QXmlStreamReader& xml) {
    std::vector<FeedItem> items;
    while (xml.readNextStartElement()) {
        if (xml.name() != QLatin1String("channel")) {
            xml.skipCurrentElement();
            continue;
        }
        while (xml.readNextStartElement()) {
            if (xml.name() != QLatin1String("item")) {
                xml.skipCurrentElement();
            } else if (auto item = readItem(xml); isAppVersion(item.version)) {
                items.push_back(std::move(item));
            }
        }
    }
    return items;
}

bool isAtLeast(const std::string& version, const std::string& least) {
    const auto order = compareAppVersions(version, least);
    return order && std::is_gteq(*order);
}

bool endsWith(const std::string& url, std::string_view extension) {
    return url.size() > extension.size() && url.ends_with(extension);
}

}  // namespace

std::optional<std::vector<FeedItem>> feedItems(std::span<const std::uint8_t> document) {
    if (document.size() > largestFeed) {
        return std::nullopt;
    }
    const auto sound = soundXml(document, DocumentType::refused);
    QXmlStreamReader xml(sound);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("rss")) {
        return std::nullopt;
    }
    return readChannels(xml);
}

PackageKind packageKindOf(const FeedItem& item) {
    if (endsWith(item.url, ".AppImage")) {
        return PackageKind::appImage;
    }
    return endsWith(item.url, ".deb") ? PackageKind::debian : PackageKind::other;
}

bool isFor(const UpdateTarget& target, const FeedItem& item) {
    const bool ours = item.os.empty() ? packageKindOf(item) != PackageKind::other
                                      : item.os == "linux" || item.os == "linux-" + target.machine;
    const bool followed = item.channel.empty() || item.channel == target.channel;
    return ours && followed && (item.minimumSystem.empty() || isAtLeast(target.system, item.minimumSystem));
}

const FeedItem* newestItem(const std::vector<FeedItem>& items, const UpdateTarget& target) {
    const FeedItem* newest = nullptr;
    for (const auto& item : items) {
        if (!isFor(target, item) || isAtLeast(target.version, item.version) ||
            (!target.lowest.empty() && !isAtLeast(item.version, target.lowest))) {
            continue;
        }
        const bool wanted = packageKindOf(item) == target.kind;
        const bool held = newest != nullptr && packageKindOf(*newest) == target.kind;
        if (newest == nullptr || (wanted && !held) ||
            (wanted == held && !isAtLeast(newest->version, item.version))) {
            newest = &item;
        }
    }
    return newest;
}

}  // namespace kzq
