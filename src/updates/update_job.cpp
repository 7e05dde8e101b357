#include "updates/update_job.h"

#include "platform/digest.h"
#include "platform/plain_file.h"
#include "platform/system_reason.h"
#include "updates/app_image.h"
#include "updates/self_check.h"
#include "updates/update_download.h"

namespace kzq {
namespace {

constexpr auto feedLimit = std::chrono::seconds(60);
// A package is large and the user sees its progress: it may take long, as long as data comes.
constexpr auto packageLimit = std::chrono::milliseconds(0);
constexpr auto packageSilence = std::chrono::seconds(30);
constexpr auto packagePermissions = std::filesystem::perms(0644);

void enter(const UpdateJob& job, UpdateRun::Stage stage) {
    job.run->stage = stage;
    job.post();
}

UpdateReason reasonOf(const Trouble& trouble) {
    return trouble.error == 0 ? updateReason(trouble.where)
                              : updateReason(english("%1: %2"), trouble.where, systemReason(trouble.error));
}

/// Empty, or why not.
UpdateReason fetchInto(UpdateDownload& download, const UpdateJob& job, HttpClient& http) {
    Result<void> stored;
    HttpRequest request;
    request.url = job.item.url;
    request.limits = {job.item.length, packageLimit, packageSilence};
    request.cancelled = &job.run->cancelled;
    request.sink = [&](std::span<const std::uint8_t> bytes) {
        stored = download.append(bytes);
        return stored.has_value();
    };
    request.progress = [&job](std::uint64_t received, std::uint64_t /*total*/) {
        job.run->received = received;
        if (job.run->shown.exchange(false)) {
            job.post();
        }
    };
    const auto fetched = http.fetch(request);
    if (!stored) {
        return reasonOf(stored.error());
    }
    return fetched ? UpdateReason{}
                   : updateReason(english("the update could not be downloaded: %1"), fetched.reason);
}

/// Empty, or why the download, which is not yet in place, is not to be installed.
UpdateReason tryOut(const UpdateJob& job, UpdateDownload& download) {
    if (const auto sealed = sealAppImage(job.place, download); !sealed) {
        return reasonOf(sealed.error());
    }
    const auto said = job.selfCheck(download.part());
    if (said && saysVersion(*said, job.item.version)) {
        return {};
    }
    return updateReason(english("the new version does not work: %1; the program in place was not changed"),
                        said ? std::string(english("it is not the stated version")) : said.error().where);
}

/// Whether the package is in its place already, as after an installation that another one repeats: what was
/// kept as the previous version then stays.
bool isInPlace(const UpdateJob& job) {
    const auto bytes = readPlainFile(job.place, largestPackage, Links::refused);
    return bytes && SHA256String(*bytes) == job.item.sha256;
}

/// Empty, or why not.
UpdateReason install(const UpdateJob& job, UpdateDownload& download) {
    if (job.installation.kind != PackageKind::appImage) {
        const auto placed = download.place(packagePermissions);
        return placed ? UpdateReason{} : reasonOf(placed.error());
    }
    if (auto objection = tryOut(job, download); !objection.empty() || isInPlace(job)) {
        return objection;
    }
    const auto replaced = replaceAppImage(job.place, download);
    return replaced ? UpdateReason{} : reasonOf(replaced.error());
}

}  // namespace

FeedReading readFeed(HttpClient& http, const std::string& url, const UpdateRun& run) {
    HttpRequest request;
    request.url = url;
    request.limits = {largestFeed, feedLimit};
    request.cancelled = &run.cancelled;
    const auto result = http.fetch(request);
    if (!result) {
        return {updateReason(english("the list of updates could not be read: %1"), result.reason), {}};
    }
    auto items = feedItems(result.body);
    if (!items) {
        return {updateReason(english("the list of updates is damaged")), {}};
    }
    return {{}, std::move(*items)};
}

std::filesystem::path packagePlace(const Installation& installation, const std::filesystem::path& downloads,
                                   const FeedItem& item) {
    if (installation.kind == PackageKind::appImage) {
        return installation.appImage;
    }
    return downloads / ("7306-loop-manager-" + item.version + ".deb");
}

UpdateReason perform(const UpdateJob& job, HttpClient& http) {
    UpdateDownload download(job.place);
    if (const auto opened = download.open(); !opened) {
        return reasonOf(opened.error());
    }
    if (auto failure = fetchInto(download, job, http); !failure.empty()) {
        return failure;
    }
    enter(job, UpdateRun::Stage::verifying);
    if (const auto verified = download.verify(job.item, job.keys); !verified) {
        return reasonOf(verified.error());
    }
    if (!job.run->commit()) {
        return updateReason(english("cancelled"));
    }
    enter(job, UpdateRun::Stage::installing);
    return install(job, download);
}

}  // namespace kzq
