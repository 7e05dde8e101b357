#include "updates/firmware_updates.h"

#include <utility>

#include "updates/firmware_texts.h"
#include "updates/update_log.h"

namespace kzq {
namespace {

constexpr auto checkPeriod = std::chrono::seconds(15);

/// One refresh at a time in the process. Recursive, so that a refresh from inside a refresh finds it busy.
std::recursive_mutex& refreshLock() {
    // Never destroyed: a fetch may outlast main().
    static auto* const lock = new std::recursive_mutex;
    return *lock;
}

}  // namespace

std::shared_ptr<FirmwareUpdates> FirmwareUpdates::updater(FirmwareEnvironment environment) {
    auto updates = std::make_shared<FirmwareUpdates>(std::move(environment));
    updates->setup();
    updates->scheduleTimer();
    return updates;
}

FirmwareUpdates::FirmwareUpdates(FirmwareEnvironment environment)
    : environment_(std::move(environment)),
      source_(environment_.http, environment_.server, environment_.home, &stopped_) {}

void FirmwareUpdates::setup() {
    if (!initialized_ && !environment_.server.manifest.empty()) {
        initialized_ = source_.cache().prepare();
        note(initialized_ ? "" : "no folder for firmware: " + source_.cache().folder().string());
    }
}

void FirmwareUpdates::scheduleTimer() {
    environment_.executor.mainAfter(checkPeriod, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->scheduleTimer();
            self->timer();
        }
    });
}

std::optional<std::string> FirmwareUpdates::currentSoftware() const {
    const auto& version = environment_.softwareVersion;
    return version.empty() ? std::nullopt : std::optional(version);
}

std::optional<std::filesystem::path> FirmwareUpdates::update() const {
    const std::lock_guard guard(mutex_);
    return update_ ? std::optional(source_.cache().pathOf(*update_)) : std::nullopt;
}

std::optional<FirmwareImage> FirmwareUpdates::offeredImage() const {
    std::unique_lock guard(mutex_);
    const auto offered = update_;
    guard.unlock();
    return offered ? cached(*offered) : std::nullopt;
}

void FirmwareUpdates::clearUpdate() {
    {
        const std::lock_guard guard(mutex_);
        installed_ = true;
    }
    setUpdate(std::nullopt);
}

void FirmwareUpdates::pedalRead() {
    const auto device = pedal();
    {
        const std::lock_guard guard(mutex_);
        if (device == read_ && !installed_) {
            return;
        }
        read_ = device;
        if (!device.known()) {
            return;
        }
        installed_ = false;
    }
    if (const auto offered = news().offered;
        !offered.empty() && !device.takes(FirmwareVersionFromString(offered))) {
        setUpdate(std::nullopt);
    }
    check();
}

FirmwareNews FirmwareUpdates::news() const {
    const std::lock_guard guard(mutex_);
    return news_;
}

FirmwareUpdates::Pedal FirmwareUpdates::pedal() const {
    return {environment_.factoryBlank(), FirmwareVersionFromString(environment_.version().value_or(""))};
}

std::optional<bool> FirmwareUpdates::isNewest(const FirmwareImage& image) const {
    const std::lock_guard guard(mutex_);
    return newest_ ? std::optional(isImageOf(*newest_, image)) : std::nullopt;
}

void FirmwareUpdates::setUpdate(std::optional<FirmwareEntry> update) {
    {
        const std::lock_guard guard(mutex_);
        if (update && installed_) {
            return;
        }
        update_ = update;
    }
    setNews([&](FirmwareNews& news) { news.offered = update ? update->version : ""; });
}

void FirmwareUpdates::timer() {
    check();
}

void FirmwareUpdates::check() {
    if (!initialized_ || waiting_.exchange(true)) {
        return;
    }
    environment_.executor.background(Priority::background, [weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            self->refresh();
        }
    });
}

void FirmwareUpdates::refresh() {
    const std::lock_guard guard(refreshLock());
    waiting_ = false;
    if (!initialized_ || busy_.exchange(true)) {
        return;
    }
    refreshLocked();
    busy_ = false;
}

void FirmwareUpdates::refreshLocked() {
    const auto device = pedal();
    if (!device.known()) {
        return;
    }
    const auto entry = noted(source_.newest());
    if (!entry) {
        return;
    }
    {
        const std::lock_guard guard(mutex_);
        newest_ = *entry;
    }
    setNews([&, now = environment_.time()](FirmwareNews& news) {
        news.read = now;
        news.newest = entry->version;
    });
    const auto offered = FirmwareVersionFromString(entry->version);
    if (!device.takes(offered)) {
        setUpdate(std::nullopt);
        note("");
        return;
    }
    const auto image = source_.image(*entry, progress());
    setNews([](FirmwareNews& news) { news.received = news.total = 0; });
    if (!image) {
        note(image.error());
        return;
    }
    note("");
    offer(*entry, offered);
}

/// Asks the pedal again: it may have been flashed or swapped during the download. If it has left, a later
/// check takes over.
void FirmwareUpdates::offer(const FirmwareEntry& entry, const FirmwareVersion& offered) {
    const auto device = pedal();
    if (!device.known()) {
        return;
    }
    if (!device.takes(offered)) {
        setUpdate(std::nullopt);
        return;
    }
    setUpdate(entry);
    if (update()) {
        announce(offered, device.version, entry.changes);
    }
}

void FirmwareUpdates::announce(const FirmwareVersion& offered, const FirmwareVersion& device,
                               const std::vector<std::string>& changes) {
    onMain([headline = firmwareHeadline(offered, device)](const FirmwareEnvironment& environment) {
        if (environment.showHeadline) {
            environment.showHeadline(headline);
        }
    });
    onMain([notes = firmwareNotes(changes)](const FirmwareEnvironment& environment) {
        if (environment.appendNotes) {
            environment.appendNotes(notes);
        }
    });
}

void FirmwareUpdates::onMain(std::function<void(const FirmwareEnvironment&)> show) {
    if (std::this_thread::get_id() == mainThread_) {
        show(environment_);
        return;
    }
    environment_.executor.main([weak = weak_from_this(), show = std::move(show)] {
        if (const auto self = weak.lock()) {
            show(self->environment_);
        }
    });
}

void FirmwareUpdates::setNews(const std::function<void(FirmwareNews&)>& change) {
    {
        const std::lock_guard guard(mutex_);
        const auto before = news_;
        change(news_);
        if (news_ == before || !environment_.newsChanged || std::exchange(newsPosted_, true)) {
            return;
        }
    }
    environment_.executor.main([weak = weak_from_this()] {
        if (const auto self = weak.lock()) {
            {
                const std::lock_guard guard(self->mutex_);
                self->newsPosted_ = false;
            }
            self->environment_.newsChanged();
        }
    });
}

FirmwareSource::Progress FirmwareUpdates::progress() {
    return [this](std::uint64_t received, std::uint64_t total) {
        setNews([&](FirmwareNews& news) {
            news.received = received;
            news.total = total;
        });
    };
}

void FirmwareUpdates::note(const Trouble& trouble) {
    setNews([&trouble](FirmwareNews& news) { news.trouble = trouble; });
    note((trouble.where.empty() ? "" : trouble.where + ": ") + trouble.words);
}

/// The same line every 15 seconds would bury the rest of the log.
void FirmwareUpdates::note(const std::string& failure) {
    if (failure.empty()) {
        setNews([](FirmwareNews& news) { news.trouble.reset(); });
    }
    const std::lock_guard guard(mutex_);
    if (failure != lastFailure_ && !failure.empty()) {
        logUpdates(failure);
    }
    lastFailure_ = failure;
}

}  // namespace kzq
