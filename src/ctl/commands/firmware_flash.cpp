#include "ctl/commands/firmware_flash.h"

#include <utility>

namespace kzq::ctl {
namespace {

constexpr Executor::Duration timeBetweenLooks = std::chrono::milliseconds(50);

}  // namespace

bool FirmwareFlash::disconnected() {
    const std::lock_guard guard(mutex_);
    news_.away = begun_;
    ++news_.departures;
    return begun_;
}

bool FirmwareFlash::connected(const KZQ7306& looper) {
    const std::lock_guard guard(mutex_);
    if (begun_) {
        news_.away = false;
        news_.returned = looper.stage();
    }
    return begun_;
}

bool FirmwareFlash::wantStop() {
    const std::lock_guard guard(mutex_);
    news_.stopWanted = begun_;
    return begun_;
}

bool FirmwareFlash::begin(const std::function<bool()>& ended) {
    const std::lock_guard guard(mutex_);
    begun_ = !ended();
    return begun_;
}

bool FirmwareFlash::begun() const {
    const std::lock_guard guard(mutex_);
    return begun_;
}

bool FirmwareFlash::underWay() const {
    const std::lock_guard guard(mutex_);
    return begun_ && news_.completed != true;
}

void FirmwareFlash::send(const std::shared_ptr<KZQ7306>& looper, std::vector<std::uint8_t> image) {
    executor_.background(
        Priority::high, [self = shared_from_this(), looper, image = std::move(image)]() mutable {
            const bool accepted = looper->flashFirmware(
                std::move(image), [self, looper](bool flashed) { self->complete(*looper, flashed); });
            const std::lock_guard guard(self->mutex_);
            self->news_.accepted = accepted;
        });
}

void FirmwareFlash::complete(const KZQ7306& looper, bool flashed) {
    const std::lock_guard guard(mutex_);
    news_.trouble = flashed ? std::nullopt : looper.lastTrouble();
    news_.completed = flashed;
    if (flashed) {
        news_.returned.reset();
    }
}

void FirmwareFlash::askVersion(const std::shared_ptr<KZQ7306>& looper) {
    executor_.background(Priority::high, [self = shared_from_this(), looper] {
        const auto status = looper->status(false);
        const bool unread = !status || status->version.find('\0') != std::string::npos;
        const std::lock_guard guard(self->mutex_);
        self->news_.version = unread ? "" : status->version;
    });
}

/// Slices are counted, not the clock: a program that was stopped for a while has not waited for the pedal.
bool FirmwareFlash::await(const std::string& what, Executor::Duration limit, const Ready& ready) {
    Executor::Duration waited{};
    while (!ready(news())) {
        if (limit > Executor::Duration::zero() && waited >= limit) {
            output_.endProgress();
            return false;
        }
        const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(waited).count();
        output_.progress(what + ": " + std::to_string(seconds) + " s");
        executor_.sleep(timeBetweenLooks);
        waited += timeBetweenLooks;
    }
    output_.endProgress();
    return true;
}

FirmwareFlash::News FirmwareFlash::news() const {
    const std::lock_guard guard(mutex_);
    return news_;
}

}  // namespace kzq::ctl
