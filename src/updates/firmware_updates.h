#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/executor.h"
#include "platform/fixed.h"
#include "updates/firmware_source.h"
#include "updates/firmware_version.h"

namespace kzq {

/// What the firmware updater runs on. Executor and client outlive it; the functions may be called on any
/// thread, except the two for texts.
struct FirmwareEnvironment {
    Executor& executor;
    HttpClient& http;
    std::function<bool()> factoryBlank;                   ///< whether the pedal has no firmware
    std::function<std::optional<std::string>()> version;  ///< that of the pedal's firmware
    std::string softwareVersion;                          ///< the program's own
    std::filesystem::path home;                           ///< the user's home folder; empty for none
    FirmwareServer server;
    /// Main thread: shows the headline of the offer and clears the notes. May be empty.
    std::function<void(const std::string& headline)> showHeadline;
    /// Main thread: appends to the notes. May be empty.
    std::function<void(const std::string& notes)> appendNotes;
    /// Main thread: `news` has changed; while an image comes, at most once per turn. May be empty.
    std::function<void()> newsChanged = {};
    std::function<std::chrono::system_clock::time_point()> time = std::chrono::system_clock::now;
};

/// What is known about the maker's list, beyond the offer.
struct FirmwareNews {
    std::optional<std::chrono::system_clock::time_point> read;  ///< when the list last came
    std::string newest = {};                                    ///< its newest version, as given
    std::string offered = {};                                   ///< the version of `update`; empty: none
    std::optional<Trouble> trouble;                             ///< why the last check got no further
    std::uint64_t received = 0;                                 ///< of an image that is coming
    std::uint64_t total = 0;                                    ///< its length; 0: none is coming

    bool operator==(const FirmwareNews&) const = default;
};

/// Keeps the newest firmware, verified, in the cache, and offers it if the pedal runs an older one or none:
/// the firmware updater without its window. Failures are never shown; the log gets the reason when it
/// changes, and the next check tries again.
///
/// The texts of an offer are posted to the main thread in order and not waited for. Seen from the main
/// thread, this is as if the check had waited, but a check cannot hang on a main thread that is quitting or
/// that itself waits for the check's lock.
class FirmwareUpdates : public std::enable_shared_from_this<FirmwareUpdates>, Fixed {
  public:
    /// A set-up updater; its first check comes 15 seconds later, then one every 15 seconds for its life. It
    /// lives for as long as the caller keeps it. Main thread.
    static std::shared_ptr<FirmwareUpdates> updater(FirmwareEnvironment environment);

    /// Main thread.
    explicit FirmwareUpdates(FirmwareEnvironment environment);
    ~FirmwareUpdates() = default;

    /// Makes the cache folder. Without it nothing is ever refreshed. Does nothing once it succeeded.
    void setup();
    bool initialized() const { return initialized_; }
    bool busy() const { return busy_; }

    /// The offered file, or nothing. It was verified when offered, but may have changed since: send only
    /// `offeredImage` to a pedal. Any thread.
    std::optional<std::filesystem::path> update() const;
    /// The offered image, read and verified again; nothing if there is no offer or the file is no longer the
    /// entry's image. Reads up to largestFirmware bytes. Any thread.
    std::optional<FirmwareImage> offeredImage() const;
    /// Withdraws the offer, once it is installed. The next comes after `pedalRead`. Any thread.
    void clearUpdate();
    /// The pedal has come, or its version has been read. An offer that it has no use for is taken back at
    /// once; a check follows if the pedal is another, or another version, than at the last call. Any thread.
    void pedalRead();
    FirmwareNews news() const;
    /// Whether `image` is the maker's newest; nothing while the list has not been read. Any thread.
    std::optional<bool> isNewest(const FirmwareImage& image) const;
    /// The program's own version, or nothing if it is empty.
    std::optional<std::string> currentSoftware() const;

    /// A refresh in the background, if set up. Not queued if one is already waiting for its turn, since it
    /// would find nothing newer. Any thread.
    void check();
    void timer();
    /// The whole check. Blocks for the network and for other refreshes in the process, so do not call it on
    /// the main thread of a window. Any thread.
    void refresh();
    /// Makes running and later fetches end at once: the program quits. Any thread.
    void stop() { stopped_ = true; }

    /// The image of `entry` from the cache (see FirmwareCache), or fetched, verified and put there. Any
    /// thread; `download` blocks for the network.
    std::optional<FirmwareImage> cached(const FirmwareEntry& entry) const {
        return source_.cache().cached(entry);
    }
    std::optional<FirmwareImage> download(const FirmwareEntry& entry) {
        return noted(source_.download(entry));
    }

  private:
    struct Pedal {
        bool blank = false;
        FirmwareVersion version;

        bool operator==(const Pedal&) const = default;

        bool known() const { return blank || version != FirmwareVersion{}; }
        bool takes(const FirmwareVersion& offered) const { return blank || version < offered; }
    };

    void scheduleTimer();
    Pedal pedal() const;
    void refreshLocked();
    void offer(const FirmwareEntry& entry, const FirmwareVersion& offered);
    void setUpdate(std::optional<FirmwareEntry> update);
    void announce(const FirmwareVersion& offered, const FirmwareVersion& device,
                  const std::vector<std::string>& changes);
    void onMain(std::function<void(const FirmwareEnvironment&)> show);
    void note(const std::string& failure);
    void note(const Trouble& trouble);
    void setNews(const std::function<void(FirmwareNews&)>& change);
    FirmwareSource::Progress progress();
    /// What came; or nothing, with a note why.
    template <class T>
    std::optional<T> noted(Result<T> result) {
        if (!result) {
            note(result.error());
            return std::nullopt;
        }
        return std::move(*result);
    }

    const FirmwareEnvironment environment_;
    std::atomic<bool> stopped_ = false;
    const FirmwareSource source_;
    const std::thread::id mainThread_ = std::this_thread::get_id();
    std::atomic<bool> initialized_ = false;
    std::atomic<bool> busy_ = false;
    std::atomic<bool> waiting_ = false;  ///< a check is queued and has not started
    mutable std::mutex mutex_;           ///< guards the members below
    std::optional<FirmwareEntry> update_;
    std::optional<FirmwareEntry> newest_;
    Pedal read_;              ///< at the last `pedalRead`
    bool installed_ = false;  ///< what the pedal runs now has not been read
    FirmwareNews news_;
    bool newsPosted_ = false;  ///< and not yet handled
    std::string lastFailure_;
};

}  // namespace kzq
