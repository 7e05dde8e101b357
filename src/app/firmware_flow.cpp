#include "app/firmware_flow.h"

#include <optional>
#include <utility>

#include "app/app_parts.h"
#include "operations/flash.h"
#include "platform/plain_file.h"
#include "updates/firmware_manifest.h"

namespace kzq {

namespace {

/// It cannot be cancelled.
constexpr Patience patience{.limit = std::chrono::seconds(60), .stops = true};

/// One installation, from the press of the button on. Its parts are used on the main thread only.
class Installation {
  public:
    /// Without a file, of what is offered.
    Installation(AppParts& parts, std::optional<std::filesystem::path> file)
        : parts_(parts), file_(std::move(file)) {}

    void work(Run& run) {
        if (!run.idle() || !run.ask([this] { return isThere(); }).value_or(false)) {
            return;
        }
        const auto image = file_ ? chosenImage() : updates_->offeredImage();
        if (image && !image->empty() && run.ask([&] { start(run); })) {
            install(run, *image);
        }
    }

  private:
    bool isThere() {
        const auto& updater = parts_.panels.firmwareUpdater;
        updates_ = updater ? updater->updates() : nullptr;
        return updater && (file_ || updater->update());
    }

    /// The whole file that the user chose; links are followed.
    std::optional<FirmwareImage> chosenImage() const {
        auto image = readPlainFile(*file_, largestFirmware, Links::followed);
        return image ? std::optional(std::move(*image)) : std::nullopt;
    }

    void start(Run& run) {
        auto& updater = *parts_.panels.firmwareUpdater;
        updater.progress().begin();
        endBar_ = updater.progress().ender();
        updater.close();
        run.turn.cover();
    }

    /// After a failure the bar and the offer stay.
    void install(Run& run, const FirmwareImage& image) {
        const auto waits = [&](FlashPhase phase) {
            if (phase == FlashPhase::cameBack) {
                run.ask([&] {
                    parts_.presenter.tell(
                        "The pedal came back without entering its loader. The firmware is sent once it "
                        "does.");
                });
            }
        };
        const auto end = runFlash(*run.pedal, image, {.phase = waits});
        const bool sent = end.how == FlashEnd::How::sent;
        if (sent) {
            updates_->clearUpdate();
            endBar_();
        }
        run.ask([&] {
            run.turn.end();
            parts_.presenter.tell(end);
        });
        updates_->check();
        if (sent) {
            const auto confirmed = confirmFlash(*run.pedal, end, {});
            run.ask([&] { parts_.presenter.tell(confirmed); });
        }
    }

    AppParts& parts_;
    const std::optional<std::filesystem::path> file_;
    std::shared_ptr<FirmwareUpdates> updates_;
    std::function<void()> endBar_;
};

void begin(AppParts& parts, std::optional<std::filesystem::path> file) {
    parts.flows->start(patience, [flow = std::make_shared<Installation>(parts, std::move(file))](Run& run) {
        flow->work(run);
    });
}

}  // namespace

void beginOfferedFirmware(AppParts& parts) {
    parts.menu.close();
    begin(parts, std::nullopt);
}

void beginFirmware(AppParts& parts, const std::filesystem::path& file) {
    parts.menu.close();
    if (!file.empty()) {
        begin(parts, file);
    }
}

}  // namespace kzq
