#include "release/inspection.h"

#include "platform/plain_file.h"
#include "updates/firmware_source.h"
#include "updates/self_check.h"
#include "updates/update_download.h"

namespace kzq::release {
namespace {

/// The site's files in place of the web.
class FolderClient : public HttpClient {
  public:
    explicit FolderClient(const Site& site) : site_(site) {}

    HttpResult fetch(const HttpRequest& request) override {
        const auto file = site_.fileAt(request.url);
        auto bytes = readPlainFile(file, request.limits.bytes, Links::followed);
        if (!bytes) {
            return {HttpFailure::refused, "there is no usable file " + file.string(), {}};
        }
        if (!request.sink) {
            return {HttpFailure::none, {}, std::move(*bytes)};
        }
        const bool stored = request.sink(*bytes);
        return {stored ? HttpFailure::none : HttpFailure::sink, stored ? "" : "it could not be stored", {}};
    }

  private:
    const Site& site_;
};

std::string reasonOf(const Trouble& trouble) {
    return (trouble.where.empty() ? "" : trouble.where + ": ") + trouble.words;
}

void add(Inspection& inspection, bool sound, const std::string& line) {
    inspection.sound = inspection.sound && sound;
    inspection.lines.push_back((sound ? "ok      " : "FAILED  ") + line);
}

void inspectFirmware(Inspection& inspection, const Site& site, const std::vector<UpdateKey>& keys,
                     const std::filesystem::path& scratch) {
    const auto manifest = firmwareManifestAddress(site.host());
    const auto list = site.listAt(manifest);
    if (!list) {
        add(inspection, false, reasonOf(list.error()));
        return;
    }
    if (list->empty()) {
        inspection.lines.emplace_back("-       no firmware is listed");
        return;
    }
    FolderClient client(site);
    const FirmwareSource source(client, {manifest, keys}, scratch);
    const auto entry = source.newest();
    const auto image = entry ? source.image(*entry) : Result<FirmwareImage>(entry.error());
    if (!image) {
        add(inspection, false, "firmware: " + reasonOf(image.error()));
        return;
    }
    add(inspection, true,
        "firmware " + entry->version + ": " + entry->name + ", " + std::to_string(entry->size) + " bytes, " +
            (keys.empty() ? "no key was given, so its signature was not checked"
                          : "signed, serial " + std::to_string(entry->serial)));
}

/// Empty, or why it would not be installed.
std::string objectionTo(const FeedItem& item, const Site& site, const std::vector<UpdateKey>& keys,
                        const std::filesystem::path& scratch, bool start) {
    const auto bytes = readPlainFile(site.fileAt(item.url), largestPackage, Links::followed);
    if (!bytes) {
        return "the file is missing";
    }
    UpdateDownload download(scratch / site.fileAt(item.url).filename());
    auto verified = download.open().and_then([&] { return download.append(*bytes); }).and_then([&] {
        return download.verify(item, keys);
    });
    if (!verified) {
        return verified.error().where;
    }
    if (!start || packageKindOf(item) != PackageKind::appImage) {
        return {};
    }
    constexpr auto permissions = std::filesystem::perms(0755);
    verified = download.place(permissions);
    const auto said = verified ? selfCheck(scratch / site.fileAt(item.url).filename())
                               : Result<std::string>(verified.error());
    if (!said) {
        return said.error().where;
    }
    return saysVersion(*said, item.version) ? "" : "it says \"" + *said + "\"";
}

}  // namespace

Inspection inspect(const Site& site, const std::vector<UpdateKey>& keys, const std::filesystem::path& scratch,
                   bool start) {
    Inspection inspection;
    inspectFirmware(inspection, site, keys, scratch);
    for (const auto kind : {Feed::normal, Feed::staging}) {
        const auto text = site.listAt(softwareFeedAddress(kind, site.host()));
        if (!text) {
            add(inspection, false, reasonOf(text.error()));
            continue;
        }
        if (text->empty()) {
            continue;
        }
        const auto items = feedItems({reinterpret_cast<const std::uint8_t*>(text->data()), text->size()});
        if (!items) {
            add(inspection, false, "the feed cannot be read");
            continue;
        }
        for (const auto& item : *items) {
            const auto objection = objectionTo(item, site, keys, scratch, start);
            add(inspection, objection.empty(),
                (kind == Feed::staging ? "staging, program " : "program ") + item.version + ": " + item.url +
                    (objection.empty() ? "" : ": " + objection));
        }
    }
    return inspection;
}

}  // namespace kzq::release
