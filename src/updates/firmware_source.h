#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/fixed.h"
#include "platform/result.h"
#include "updates/firmware_cache.h"
#include "updates/firmware_manifest.h"
#include "updates/http_client.h"

namespace kzq {

/// The maker's list of firmware, and the images beside it; verified ones are kept in the cache. Any thread;
/// what fetches blocks for the web. A trouble has a line for the log in `words`.
class FirmwareSource : Fixed {
  public:
    /// `http` outlives it, and so does `cancelled`, which ends fetches. `home` is the user's home folder;
    /// empty for none. `limit` is for each fetch.
    FirmwareSource(HttpClient& http, std::string manifest, const std::filesystem::path& home,
                   std::chrono::milliseconds limit = HttpLimits().total,
                   const std::atomic<bool>* cancelled = nullptr);

    const FirmwareCache& cache() const { return cache_; }

    /// The newest entry; it has a name and a known version.
    Result<FirmwareEntry> newest() const;
    /// The verified image of `entry`: from the cache (see FirmwareCache), or downloaded.
    Result<FirmwareImage> image(const FirmwareEntry& entry) const;
    /// Fetched, verified and put into the cache.
    Result<FirmwareImage> download(const FirmwareEntry& entry) const;

  private:
    HttpResult fetch(const std::string& url, std::uint64_t largest) const;

    HttpClient& http_;
    const std::string manifest_;
    const FirmwareCache cache_;
    const std::chrono::milliseconds limit_;
    const std::atomic<bool>* cancelled_;
};

}  // namespace kzq
