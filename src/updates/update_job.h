#pragma once

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/result.h"
#include "updates/http_client.h"
#include "updates/update_build.h"
#include "updates/update_feed.h"
#include "updates/update_reason.h"

namespace kzq {

/// Starts a program once, as kzq::selfCheck does.
using SelfCheck = std::function<Result<std::string>(const std::filesystem::path& program)>;

/// Shared by the main thread and the background job of one check or one installation.
struct UpdateRun {
    enum class Stage { downloading, verifying, installing };

    /// Stops the run, unless it has started to install an update. Returns whether it is stopped.
    bool cancel() {
        auto expected = Fate::open;
        const bool stopped = fate.compare_exchange_strong(expected, Fate::cancelled);
        cancelled = cancelled || stopped;
        return stopped || expected == Fate::cancelled;
    }
    /// From here on it cannot be stopped. False if it already is stopped.
    bool commit() {
        auto expected = Fate::open;
        return fate.compare_exchange_strong(expected, Fate::committed);
    }

    enum class Fate { open, cancelled, committed };
    std::atomic<Fate> fate = Fate::open;
    std::atomic<bool> cancelled = false;  ///< for the HTTP client
    std::atomic<std::uint64_t> received = 0;
    std::atomic<Stage> stage = Stage::downloading;
    std::atomic<bool> shown = true;  ///< whether the last post to the main thread has been handled
};

struct FeedReading {
    UpdateReason failure;  ///< empty for success
    std::vector<FeedItem> items;
};

/// Fetches and parses a feed. Blocks; a worker thread.
FeedReading readFeed(HttpClient& http, const std::string& url, const UpdateRun& run);

/// The download, verification and installation of one package.
struct UpdateJob {
    FeedItem item;
    std::vector<UpdateKey> keys;
    Installation installation;
    std::filesystem::path place;  ///< the package's final path
    std::shared_ptr<UpdateRun> run;
    std::function<void()> post;  ///< asks the main thread to show the run
    SelfCheck selfCheck;
};

/// Where the package for an installation goes: over the AppImage, or into `downloads`.
std::filesystem::path packagePlace(const Installation& installation, const std::filesystem::path& downloads,
                                   const FeedItem& item);

/// Does the job: an AppImage that does not start, or as another version, is not put in place. Returns why it
/// failed; empty for success. Blocks; a worker thread.
UpdateReason perform(const UpdateJob& job, HttpClient& http);

}  // namespace kzq
