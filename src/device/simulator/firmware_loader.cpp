#include "device/simulator/firmware_loader.h"

#include <algorithm>
#include <chrono>
#include <string_view>
#include <utility>

#include "device/wire.h"
#include "platform/digest.h"
#include "platform/little_endian.h"

namespace kzq::simulator {

namespace {

constexpr std::size_t trailerLength = 36;
constexpr std::chrono::seconds preparation{8};
constexpr std::chrono::seconds storing{1};
constexpr std::size_t versionLength = 4;

}  // namespace

void FirmwareLoader::prepare(Executor::TimePoint now) {
    drop();
    phase_ = Phase::image;
    outcome_ = Outcome::none;
    prepared_ = now;
}

bool FirmwareLoader::announceTrailer(Executor::TimePoint now) {
    if (phase_ != Phase::image || image_.empty()) {
        journal_.outOfOrder("a trailer is announced without an image");
        return false;
    }
    if (now - lastImageByte_ < storing) {
        journal_.violation("E5 less than 1 s after the image");
    }
    phase_ = Phase::trailer;
    return true;
}

bool FirmwareLoader::admits(std::uint8_t code) const {
    return phase_ == Phase::idle ||
           (phase_ == Phase::image && !image_.empty() && code == wire::announceTrailer.code);
}

void FirmwareLoader::inspectOffer(std::size_t bytes) {
    if (phase_ == Phase::trailer && bytes != trailerLength - trailer_.size()) {
        journal_.violation("a trailer of " + std::to_string(bytes) + " bytes");
    }
}

std::optional<std::size_t> FirmwareLoader::receive(std::span<const std::uint8_t> from,
                                                   Executor::TimePoint now) {
    if (phase_ == Phase::image) {
        return receiveImage(from, now);
    }
    if (phase_ == Phase::trailer) {
        return receiveTrailer(from);
    }
    return std::nullopt;
}

void FirmwareLoader::drop() {
    phase_ = Phase::idle;
    image_.clear();
    trailer_.clear();
}

std::size_t FirmwareLoader::receiveImage(std::span<const std::uint8_t> from, Executor::TimePoint now) {
    if (image_.empty() && now - prepared_ < preparation) {
        journal_.violation("the image comes less than 8 s after E4");
    }
    image_.insert(image_.end(), from.begin(), from.end());
    lastImageByte_ = now;
    return from.size();
}

std::size_t FirmwareLoader::receiveTrailer(std::span<const std::uint8_t> from) {
    const std::size_t due = trailerLength - trailer_.size();
    const auto taken = from.first(std::min(due, from.size()));
    trailer_.insert(trailer_.end(), taken.begin(), taken.end());
    if (trailer_.size() < trailerLength) {
        return taken.size();
    }

    outcome_ = trailerMatches() ? Outcome::installed : Outcome::rejected;
    if (isInstalled()) {
        installedImage_ = std::move(image_);
    }
    drop();
    return taken.size();
}

bool FirmwareLoader::trailerMatches() const {
    const auto digest = SHA256(image_);
    return loadU32(trailer_) == image_.size() && digest &&
           std::equal(digest->begin(), digest->end(), trailer_.begin() + 4, trailer_.end());
}

std::optional<std::string> versionInImage(std::span<const std::uint8_t> image) {
    constexpr std::string_view mark = "7306 firmware ";
    const auto found = std::search(image.begin(), image.end(), mark.begin(), mark.end());
    if (static_cast<std::size_t>(image.end() - found) < mark.size() + versionLength) {
        return std::nullopt;
    }
    const auto start = found + static_cast<std::ptrdiff_t>(mark.size());
    std::string version(start, start + versionLength);
    if (!std::all_of(version.begin(), version.end(), [](char c) { return c > ' ' && c <= '~'; })) {
        return std::nullopt;
    }
    return version;
}

}  // namespace kzq::simulator
