#include "release/site.h"

#include <QUrl>
#include <QXmlStreamReader>
#include <cerrno>
#include <map>
#include <system_error>

#include "platform/digest.h"
#include "platform/plain_file.h"
#include "platform/replace_file.h"
#include "release/site_server.h"
#include "updates/app_image.h"
#include "updates/app_version.h"
#include "updates/firmware_version.h"

namespace kzq::release {
namespace {

Trouble trouble(const std::filesystem::path& where, const char* what) {
    return {Trouble::Kind::file, where.string(), 0, what};
}

ByteView bytesOf(const std::string& text) {
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

/// What a feed says, apart from blanks around its texts, which differ between versions of this program.
QStringList contentOf(const std::string& feed) {
    QStringList content;
    QXmlStreamReader xml(QByteArray::fromStdString(feed));
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        const auto text = xml.text().trimmed();
        if (token != QXmlStreamReader::Characters || !text.isEmpty()) {
            content << xml.tokenString() << xml.name().toString() << text.toString();
        }
        for (const auto& attribute : xml.attributes()) {
            content << attribute.qualifiedName().toString() << attribute.value().trimmed().toString();
        }
    }
    return content;
}

}  // namespace

std::filesystem::path Site::fileAt(const std::string& address) const {
    return fileFor(folder_, QUrl::fromEncoded(QByteArray::fromStdString(address)).path().toStdString());
}

Result<std::string> Site::listAt(const std::string& address) const {
    const auto file = fileAt(address);
    const auto bytes = readPlainFile(file, largestManifest, Links::followed);
    if (bytes) {
        return std::string(bytes->begin(), bytes->end());
    }
    const int error = bytes.error().error;
    if (error == ENOENT) {
        return std::string();
    }
    return Trouble{
        Trouble::Kind::file, file.string(), error,
        error == 0 ? "it is no plain file, or too long for a list" : std::generic_category().message(error)};
}

Result<void> Site::write(const std::string& address, ByteView bytes) const {
    const auto file = fileAt(address);
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    auto written = error ? Result<void>(Trouble{Trouble::Kind::folder, {}, error.value()})
                         : replaceFile(file.parent_path(), file.filename(), bytes);
    if (!written) {
        written.error().where = file.string();
        return written;
    }
    std::filesystem::permissions(file, std::filesystem::perms(0644), error);
    return {};
}

Result<void> Site::write(const std::string& address, const std::string& text) const {
    return write(address, bytesOf(text));
}

Result<FirmwareEntry> Site::add(const Firmware& firmware, const std::optional<MakerKey>& key) const {
    const auto image = readPlainFile(firmware.image, largestFirmware, Links::followed);
    if (!image || image->empty()) {
        return trouble(firmware.image, "it cannot be read, is empty, or longer than 50,000,000 bytes");
    }
    if (FirmwareVersionFromString(firmware.version) == FirmwareVersion{}) {
        return trouble(firmware.image, "its version must be of the form 1.06");
    }
    const auto manifest = firmwareManifestAddress(host_);
    const auto list = listAt(manifest);
    if (!list) {
        return list.error();
    }
    const auto last = newestFirmwareEntry(bytesOf(*list));
    auto entry = describe(firmware.image.filename(), *image, firmware.version, firmware.changes);
    entry.serial = last ? last->serial + 1 : 1;
    if (key && !key->sign(entry)) {
        return trouble(firmware.image, "its name or version cannot be signed");
    }
    const auto text = withEntry(*list, entry);
    if (!text) {
        return trouble(fileAt(manifest), "it is not a list");
    }
    // The list last: whoever reads it finds the image.
    const auto written =
        write(addressBeside(manifest, entry.name), *image).and_then([&] { return write(manifest, *text); });
    return written ? Result<FirmwareEntry>(entry) : written.error();
}

Result<std::vector<FeedItem>> Site::itemsAt(const std::string& address) const {
    const auto text = listAt(address);
    if (!text) {
        return text.error();
    }
    if (text->empty()) {
        return std::vector<FeedItem>();
    }
    auto items = feedItems(bytesOf(*text));
    if (!items) {
        return trouble(fileAt(address), "it is not a feed");
    }
    if (contentOf(feedText(*items)) != contentOf(*text)) {
        return trouble(
            fileAt(address),
            "it contains what this program did not write and would drop, so the feed was left as it "
            "is; edit it by hand, or move it away to begin a new one");
    }
    return std::move(*items);
}

Result<FeedItem> Site::add(const Package& package, const std::optional<MakerKey>& key) const {
    const auto bytes = readPlainFile(package.file, largestPackage, Links::followed);
    if (!bytes || bytes->empty()) {
        return trouble(package.file, "it cannot be read, is empty, or longer than 500,000,000 bytes");
    }
    const auto feed = softwareFeedAddress(package.feed, host_);
    auto item = package.item;
    item.url = addressBeside(feed, package.file.filename().string());
    item.length = bytes->size();
    item.sha256 = SHA256String(*bytes).value_or("");
    const auto kind = packageKindOf(item);
    if (kind == PackageKind::other || (kind == PackageKind::appImage && !isAppImage(*bytes))) {
        return trouble(package.file, "it is neither an AppImage nor named \".deb\"");
    }
    if (!isAppVersion(item.version)) {
        return trouble(package.file, "its version must be of the form 1.2.3");
    }
    if (key && !key->sign(item)) {
        return trouble(package.file, "what was said about it cannot be signed");
    }
    auto items = itemsAt(feed);
    if (!items) {
        return items.error();
    }
    std::erase_if(*items, [&item](const FeedItem& other) { return other.url == item.url; });
    items->insert(items->begin(), item);
    const auto written = write(item.url, *bytes).and_then([&] { return write(feed, feedText(*items)); });
    return written ? Result<FeedItem>(item) : written.error();
}

Result<std::size_t> Site::sign(const MakerKey& key) const {
    std::size_t count = 0;
    const auto manifest = firmwareManifestAddress(host_);
    const auto list = listAt(manifest);
    if (!list) {
        return list.error();
    }
    std::map<Feed, std::vector<FeedItem>> feeds;  // all are read before anything is written
    for (const auto kind : {Feed::normal, Feed::staging}) {
        auto items = itemsAt(softwareFeedAddress(kind, host_));
        if (!items) {
            return items.error();
        }
        feeds[kind] = std::move(*items);
    }
    if (auto entry = newestFirmwareEntry(bytesOf(*list)); entry && key.sign(*entry)) {
        const auto written = write(manifest, withEntry(*list, *entry).value_or(*list));
        if (!written) {
            return written.error();
        }
        ++count;
    }
    for (auto& [kind, items] : feeds) {
        for (auto& item : items) {
            count += key.sign(item) ? 1U : 0U;
        }
        const auto feed = softwareFeedAddress(kind, host_);
        if (const auto written = items.empty() ? Result<void>() : write(feed, feedText(items)); !written) {
            return written.error();
        }
    }
    return count;
}

}  // namespace kzq::release
