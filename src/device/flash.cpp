#include <limits>
#include <utility>

#include "device/kzq7306.h"
#include "platform/digest.h"
#include "platform/little_endian.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr auto preparation = std::chrono::seconds(8);  ///< the loader makes room for the image
constexpr auto settling = std::chrono::seconds(1);     ///< the loader stores the last of the image
constexpr std::size_t lengthSize = 4;
constexpr std::size_t digestSize = 32;

/// What follows an image: its length and its SHA-256. Nothing if they cannot be computed.
std::optional<std::vector<std::uint8_t>> trailerOf(const std::vector<std::uint8_t>& image) {
    const auto digest = SHA256(image);
    if (image.empty() || image.size() > std::numeric_limits<std::uint32_t>::max() || !digest ||
        digest->size() != digestSize) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> trailer(lengthSize);
    storeU32(trailer, 0, static_cast<std::uint32_t>(image.size()));
    trailer.insert(trailer.end(), digest->begin(), digest->end());
    return trailer;
}

}  // namespace

bool KZQ7306::flashFirmware(std::vector<std::uint8_t> image, FlashCompletion completion) {
    if (!claim(completion && !image.empty())) {
        return false;
    }
    imageDue_ = false;  // it begins later, and may be asked before that how far it is
    imageGone_.before = 0;
    environment_.executor.background(
        Priority::high,
        [weak = weak_from_this(), flash = Flash{std::move(image), std::move(completion)}]() mutable {
            if (const auto self = weak.lock()) {
                const auto lock = self->beginOperation(flashing);
                self->setFlash(std::move(flash));
                self->beginFirmwareUpdate();
            }
        });
    return true;
}

bool KZQ7306::beginFirmwareUpdate() {
    const std::lock_guard guard(*lock_);
    setTrouble(std::nullopt);
    const auto completion = flashCompletion();
    if (!completion) {
        setFlash(std::nullopt);
        setOperation(idle);
        return false;
    }
    const bool blank = factoryBlank();
    if (!ask(blank ? wire::openUpdate : wire::enterLoader).accepted) {
        log(LogCategory::device, "flash: the pedal refused to start an update");
        return endFirmwareUpdate(completion, false);
    }
    if (blank) {
        completeFirmwareUpdate();
    }
    // Otherwise the pedal now restarts into its loader, and the update continues when it returns.
    return true;
}

bool KZQ7306::completeFirmwareUpdate() {
    const std::lock_guard guard(*lock_);
    setTrouble(std::nullopt);
    const auto flash = takeFlash();
    if (!flash || !flash->completion) {
        setOperation(idle);
        return false;
    }
    return endFirmwareUpdate(flash->completion, sendFirmware(flash->firmware));
}

/// The loader's part of an update. The lock is held during the pauses, so that nothing else talks to the
/// pedal.
bool KZQ7306::sendFirmware(const std::vector<std::uint8_t>& image) {
    const auto trailer = trailerOf(image);
    const auto failed = [](std::string_view step) {
        log(LogCategory::device, "flash: failed at " + std::string(step));
        return false;
    };
    if (!trailer) {
        return failed("the digest");
    }
    if (!ask(wire::enterLoader).accepted) {
        return failed("the preparation");
    }
    environment_.executor.sleep(preparation);
    imageDue_ = true;
    if (!kept(send(image, imageGone_))) {
        return failed("the image");
    }
    environment_.executor.sleep(settling);
    if (!ask(wire::announceTrailer).accepted) {
        return failed("the announcement of the trailer");
    }
    return write(*trailer) || failed("the trailer");
}

bool KZQ7306::endFirmwareUpdate(const FlashCompletion& completion, bool flashed) {
    setFlash(std::nullopt);
    setOperation(idle);
    completion(flashed);
    return flashed;
}

void KZQ7306::setFlash(std::optional<Flash> flash) {
    const std::lock_guard mirror(mirror_);
    flash_ = std::move(flash);
}

std::optional<KZQ7306::Flash> KZQ7306::takeFlash() {
    const std::lock_guard mirror(mirror_);
    return std::exchange(flash_, std::nullopt);
}

KZQ7306::FlashCompletion KZQ7306::flashCompletion() const {
    const std::lock_guard mirror(mirror_);
    return flash_ ? flash_->completion : nullptr;
}

std::optional<std::size_t> KZQ7306::imageSent() const {
    return imageDue_ ? std::optional(imageGone_.before + imageGone_.now) : std::nullopt;
}

bool KZQ7306::flashPending() const {
    const std::lock_guard mirror(mirror_);
    return flash_.has_value();
}

}  // namespace kzq
