#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/fixed.h"
#include "platform/result.h"
#include "updates/firmware_cache.h"
#include "updates/firmware_manifest.h"
#include "updates/http_client.h"
#include "updates/part_file.h"
#include "updates/update_floor.h"
#include "updates/update_signature.h"

namespace kzq {

/// Where firmware comes from, and who vouches for it.
struct FirmwareServer {
    std::string manifest;  ///< https address
    /// With any, only an entry that one of them signed counts, of no older list than was seen before.
    std::vector<UpdateKey> keys = {};
    std::chrono::milliseconds total = HttpLimits().total;          ///< for the manifest
    std::chrono::milliseconds silence = std::chrono::seconds(30);  ///< for an image
};

/// The maker's list of firmware, and the images beside it; verified ones are kept in the cache. Any thread;
/// what fetches blocks for the web. A trouble has a line for the log in `words`.
///
/// What has come of an image when the connection breaks is kept beside the cache for a day, and a later
/// download asks for the rest only.
class FirmwareSource : Fixed {
  public:
    /// As in HttpRequest.
    using Progress = std::function<void(std::uint64_t received, std::uint64_t total)>;

    /// `http` outlives it, and so does `cancelled`, which ends fetches. `home` is the user's home folder;
    /// empty for none.
    FirmwareSource(HttpClient& http, FirmwareServer server, const std::filesystem::path& home,
                   const std::atomic<bool>* cancelled = nullptr);

    const FirmwareCache& cache() const { return cache_; }

    /// The newest entry; it has a name and a known version.
    Result<FirmwareEntry> newest() const;
    /// The verified image of `entry`: from the cache (see FirmwareCache), or downloaded.
    Result<FirmwareImage> image(const FirmwareEntry& entry, const Progress& progress = {}) const;
    /// Fetched, verified and put into the cache.
    Result<FirmwareImage> download(const FirmwareEntry& entry, const Progress& progress = {}) const;

  private:
    Result<void> vouch(FirmwareEntry& entry) const;
    HttpResult fetchInto(PartFile& part, const FirmwareEntry& entry, const Progress& progress) const;

    HttpClient& http_;
    const FirmwareServer server_;
    const FirmwareCache cache_;
    const std::filesystem::path parts_;  ///< folder of unfinished downloads
    const UpdateFloor floor_;
    const std::atomic<bool>* cancelled_;
};

}  // namespace kzq
