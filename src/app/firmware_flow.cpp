#include <system_error>
#include <utility>

#include "app/app_delegate.h"
#include "app/app_parts.h"
#include "app/main_window.h"
#include "device/kzq7306.h"
#include "platform/plain_file.h"
#include "updates/firmware_manifest.h"

namespace kzq {

namespace {

/// The whole file that the user chose; links are followed.
std::optional<FirmwareImage> chosenImage(const std::filesystem::path& path) {
    auto image = readPlainFile(path, largestFirmware, Links::followed);
    return image ? std::optional(std::move(*image)) : std::nullopt;
}

}  // namespace

void AppDelegate::installFirmware() {
    closeMenu();
    whenIdle([this] {
        if (!parts_->panels.firmwareUpdater || !parts_->panels.firmwareUpdater->update()) {
            endStart();
            return;
        }
        readImage([updates = parts_->panels.firmwareUpdater->updates()] { return updates->offeredImage(); });
    });
}

void AppDelegate::installFirmware(const std::filesystem::path& image) {
    closeMenu();
    if (image.empty()) {
        return;
    }
    whenIdle([this, image] {
        if (!parts_->panels.firmwareUpdater) {
            endStart();
            return;
        }
        readImage([image] { return chosenImage(image); });
    });
}

void AppDelegate::readImage(std::function<std::optional<FirmwareImage>()> read) {
    parts_->environment.executor.background(
        Priority::high,
        [&executor = parts_->environment.executor, weak = weak_from_this(), read = std::move(read)] {
            executor.main([weak, image = read().value_or(FirmwareImage{})]() mutable {
                const auto self = weak.lock();
                if (self && image.empty()) {
                    self->endStart();
                } else if (self) {
                    self->flash(std::move(image));
                }
            });
        });
}

void AppDelegate::flash(FirmwareImage image) {
    auto& progress = parts_->panels.firmwareUpdater->progress();
    progress.begin();
    parts_->panels.firmwareUpdater->close();
    beginRun();
    const auto completion = [updates = parts_->panels.firmwareUpdater->updates(), end = progress.ender(),
                             endRun = onMain(&AppDelegate::endRun)](bool flashed) {
        if (flashed) {
            updates->clearUpdate();
            end();
        }
        endRun();
        updates->check();
    };
    onLink({}, [image = std::move(image), completion](KZQ7306& looper) {
        if (!looper.flashFirmware(image, completion)) {
            completion(false);  // the pedal became busy just now, or left
        }
        return true;
    });
}

}  // namespace kzq
