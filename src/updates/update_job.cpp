#include "updates/update_job.h"

#include "updates/app_image.h"
#include "updates/update_download.h"

namespace kzq {
namespace {

constexpr auto feedLimit = std::chrono::seconds(60);
// A package is large and the user sees its progress: it may take long, as long as data comes.
constexpr auto packageLimit = std::chrono::hours(2);
constexpr auto packageSilence = std::chrono::seconds(60);
constexpr auto packagePermissions = std::filesystem::perms(0644);
constexpr const char* cancelledText = "cancelled";

void enter(const UpdateJob& job, UpdateRun::Stage stage) {
    job.run->stage = stage;
    job.post();
}

HttpResult fetchInto(UpdateDownload& download, const UpdateJob& job, HttpClient& http) {
    HttpRequest request;
    request.url = job.item.url;
    request.limits = {job.item.length, packageLimit, packageSilence};
    request.cancelled = &job.run->cancelled;
    request.sink = [&download](std::span<const std::uint8_t> bytes) { return download.append(bytes); };
    request.progress = [&job](std::uint64_t received, std::uint64_t /*total*/) {
        job.run->received = received;
        if (job.run->shown.exchange(false)) {
            job.post();
        }
    };
    return http.fetch(request);
}

}  // namespace

FeedReading readFeed(HttpClient& http, const std::string& url, const UpdateRun& run) {
    HttpRequest request;
    request.url = url;
    request.limits = {largestFeed, feedLimit};
    request.cancelled = &run.cancelled;
    const auto result = http.fetch(request);
    if (!result) {
        return {"the list of updates could not be read: " + result.reason, {}};
    }
    auto items = feedItems(result.body);
    if (!items) {
        return {"the list of updates is damaged", {}};
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

std::string perform(const UpdateJob& job, HttpClient& http) {
    UpdateDownload download(job.place);
    if (!download.open()) {
        return download.reason();
    }
    if (const auto fetched = fetchInto(download, job, http); !fetched) {
        return fetched.failure == HttpFailure::sink ? download.reason()
                                                    : "the update could not be downloaded: " + fetched.reason;
    }
    enter(job, UpdateRun::Stage::verifying);
    if (!download.verify(job.item, job.keys)) {
        return download.reason();
    }
    if (!job.run->commit()) {
        return cancelledText;
    }
    enter(job, UpdateRun::Stage::installing);
    std::string reason;
    if (job.installation.kind == PackageKind::appImage) {
        replaceAppImage(job.place, download, reason);
    } else if (!download.place(packagePermissions)) {
        reason = download.reason();
    }
    return reason;
}

}  // namespace kzq
