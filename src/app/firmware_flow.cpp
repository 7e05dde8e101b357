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
constexpr Patience flashPatience{.limit = std::chrono::seconds(60), .stops = true};

/// Its restart takes two seconds.
constexpr Executor::Duration lateAfter = std::chrono::seconds(30);

/// What is under way in this phase; null if that goes without saying.
const char* workOf(FlashPhase phase) {
    switch (phase) {
        case FlashPhase::restarting:
            return "Restarting the pedal";
        case FlashPhase::cameBack:
            return "The pedal came back without entering its loader: the firmware is sent once it does";
        case FlashPhase::sending:
            return "Sending the firmware: keep the pedal plugged in";
        default:
            return nullptr;
    }
}

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
        if (!image || image->empty()) {
            run.ask([this] { tellUnusable(); });
        }
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

    void tellUnusable() {
        const Told offered{.what = "The firmware in the cache cannot be used",
                           .detail = "It is fetched again.",
                           .failure = true};
        const Told chosen{.what = "\"" + file_.value_or("").filename().string() + "\" cannot be used",
                          .why = "it cannot be read, or it is empty",
                          .failure = true};
        parts_.teller.tell(file_ ? chosen : offered, "firmware");
    }

    void start(Run& run) {
        work_ = parts_.teller.newWork();
        auto& updater = *parts_.panels.firmwareUpdater;
        updater.progress().begin();
        endBar_ = updater.progress().ender();
        updater.close();
        run.turn.cover();
    }

    /// What the user has to know while nothing moves.
    FlashEvents restart(Run& run) {
        const auto say = [this, &run](const char* line) {
            run.ask([this, line] { parts_.teller.working(work_, line); });
        };
        const auto phase = [this, say](FlashPhase now) {
            phase_ = now;
            if (const auto* const sentence = workOf(now)) {
                say(sentence);
            }
        };
        const auto waiting = [this, say](Executor::Duration waited) {
            if (phase_ == FlashPhase::left && waited >= lateAfter && !std::exchange(late_, true)) {
                say("The pedal has not come back from its restart: unplug it and plug it in again");
            }
        };
        return {phase, waiting};
    }

    /// After a failure the bar and the offer stay.
    void install(Run& run, const FirmwareImage& image) {
        const auto awake = run.keepAwake(AwakeFor::firmware);
        const auto end = runFlash(*run.pedal, image, restart(run));
        const bool sent = end.how == FlashEnd::How::sent;
        if (sent) {
            updates_->clearUpdate();
            endBar_();
        }
        run.ask([&] {
            run.turn.end();
            if (sent) {
                parts_.teller.working(work_, "Waiting for the pedal to come back");
            } else {
                parts_.teller.idle(work_);
            }
            parts_.teller.tell(told(end), "firmware");
        });
        updates_->check();
        if (sent) {
            const auto confirmed = confirmFlash(*run.pedal, end, {});
            run.ask([&] {
                parts_.teller.idle(work_);
                parts_.teller.tell(told(confirmed), "firmware");
            });
        }
    }

    AppParts& parts_;
    const std::optional<std::filesystem::path> file_;
    std::shared_ptr<FirmwareUpdates> updates_;
    std::function<void()> endBar_;
    Teller::Work work_ = 0;
    FlashPhase phase_ = FlashPhase::asking;
    bool late_ = false;  ///< it should have come back, and the user knows
};

void begin(AppParts& parts, std::optional<std::filesystem::path> file) {
    parts.flows->start(flashPatience, [flow = std::make_shared<Installation>(parts, std::move(file))](
                                          Run& run) { flow->work(run); });
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
