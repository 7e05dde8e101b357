#include "app/firmware_flow.h"

#include <QString>
#include <optional>
#include <utility>

#include "app/app_parts.h"
#include "device/kzq7306.h"
#include "operations/flash.h"
#include "operations/told.h"
#include "platform/digest.h"
#include "platform/plain_file.h"
#include "ui/qt_words.h"
#include "updates/firmware_manifest.h"

namespace kzq {

namespace {

/// It cannot be cancelled.
constexpr Patience flashPatience{.limit = std::chrono::seconds(60), .stops = true};

/// Its restart takes two seconds.
constexpr Executor::Duration lateAfter = std::chrono::seconds(30);

/// For ten minutes, ten seconds each: what comes later may be another pedal.
constexpr int looks = 60;

/// Of how many bytes, and which: for a file that the user chose.
std::string factsOf(const FirmwareImage& image, const FirmwareUpdates& updates) {
    const auto newest = updates.isNewest(image);
    const auto known = SHA256String(image);
    const auto digest = known ? *known : words("unknown");
    return inTurn(words(image.size(), "%n byte, SHA-256 %1.", "%n bytes, SHA-256 %1.", digest),
                  !newest   ? words("Whether it is the maker's newest firmware is not known.")
                  : *newest ? words("It is the maker's newest firmware.")
                            : words("It is not the maker's newest firmware, %1.", updates.news().newest));
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
        if (image && file_) {
            facts_ = factsOf(*image, *updates_);
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
        const Told offered{.what = words("The firmware in the cache cannot be used"),
                           .detail = words("It will be downloaded again."),
                           .failure = true};
        const auto name = file_.value_or("").filename().string();
        const Told chosen{.what = words("\"%1\" cannot be used", name),
                          .why = words("it cannot be read, or it is empty"),
                          .failure = true,
                          .names = {name}};
        parts_.teller.tell(file_ ? chosen : offered, "firmware");
    }

    Told toldSent() const {
        const auto name = file_->filename().string();
        return {.what = words("\"%1\" was sent", name), .names = {name}};
    }

    void start(Run& run) {
        work_ = parts_.teller.newWork();
        version_ = file_ ? "" : updates_->news().offered;
        before_ = run.pedal->link()->factoryBlank() ? "" : run.pedal->link()->version().value_or("");
        number_ = parts_.firmware.begins();
        auto& updater = *parts_.panels.firmwareUpdater;
        updater.progress().begin();
        endBar_ = updater.progress().ender();
        updater.close();
        run.turn.cover();
    }

    void show(const FlashStep& step) {
        if (step.number != 0) {
            parts_.teller.working(work_, step.words, step.said);
            parts_.panels.firmwareUpdater->progress().setStep(step.number, FlashStep::count,
                                                              QString::fromStdString(step.words),
                                                              QString::fromStdString(step.said));
        }
    }

    FlashEvents follow(Run& run) {
        const auto say = [this, &run](const FlashStep& step) { run.ask([&] { show(step); }); };
        const auto phase = [this, say, &run](FlashPhase now) {
            if (now == FlashPhase::left && phase_ == FlashPhase::sending) {
                return;  // that the image has ended is said in a moment
            }
            phase_ = now;
            if (now == FlashPhase::sending && !awake_) {
                awake_ = run.keepAwake(AwakeFor::firmware);
            }
            say(flashStep(now, std::nullopt));
        };
        const auto waiting = [this, say](Executor::Duration waited) {
            if (phase_ < FlashPhase::sending && waited >= lateAfter) {
                awake_.reset();  // this may last for ever
            }
            if (phase_ == FlashPhase::left && waited >= lateAfter && !std::exchange(late_, true)) {
                auto step = flashStep(phase_, std::nullopt);
                step.words = step.said =
                    words("The pedal has not come back from its restart: unplug it and plug it in again");
                say(step);
            }
        };
        const auto image = [this, say, &run](unsigned percent) {
            say(flashStep(FlashPhase::sending, percent));
            run.ask([&] { parts_.transferPanel.showOnIcon(percent / 100.0); });
        };
        return {phase, waiting, image};
    }

    /// After a failure the bar and the offer stay.
    void install(Run& run, const FirmwareImage& image) {
        awake_ = run.keepAwake(AwakeFor::firmware);
        const auto end = runFlash(*run.pedal, image, follow(run));
        const bool sent = end.how == FlashEnd::How::sent;
        if (sent) {
            updates_->clearUpdate();
            endBar_();
        }
        run.ask([&] {
            run.turn.end();
            parts_.transferPanel.showOnIcon(std::nullopt);
            if (sent) {
                tell(file_ ? toldSent() : told(end));
            } else {
                finish(end, told(end));
            }
        });
        updates_->check();
        if (sent) {
            awaitReturn(run, end);
        }
        awake_.reset();
        run.ask([this] { parts_.firmware.isOver(); });
    }

    /// A pedal that does not come back is looked for a while longer, unless there is another installation.
    void awaitReturn(Run& run, const FlashEnd& sent) {
        bool goesOn = true;
        bool said = false;
        for (int look = 0; goesOn && look <= looks; ++look) {
            const auto end = confirmFlash(*run.pedal, sent, {});
            awake_.reset();
            const auto why = end.why ? end.why->kind : Trouble::Kind::noAnswer;
            const bool away = end.how == FlashEnd::How::unconfirmed &&
                              (why == Trouble::Kind::noReturn || why == Trouble::Kind::stillInLoader);
            const auto current = run.ask([&] {
                const bool latest = parts_.firmware.isLatest(number_);
                if (!latest) {
                    parts_.teller.idle(work_);
                } else if (!(away && std::exchange(said, true))) {
                    finish(end, told(end, sent, version_));
                }
                return latest;
            });
            goesOn = away && current.value_or(false);
        }
    }

    void tell(Told told) {
        if (!facts_.empty()) {
            told.detail = inTurn(told.detail, facts_);
        }
        parts_.teller.tell(told, "firmware");
    }

    void finish(const FlashEnd& end, Told told) {
        parts_.panels.firmwareUpdater->progress().setStep(0, 0, {}, {});
        if (file_) {
            parts_.teller.idle(work_);  // for a while the line says which file was sent
        }
        const bool again = told.failure && !file_ && end.how == FlashEnd::How::notSent && updates_->update();
        auto notice = told;
        if (!told.failure && !before_.empty()) {
            notice.detail = words("It ran %1 before.", before_);
        }
        parts_.firmware.ended(end, notice, again);
        tell(std::move(told));  // the newest failure is the one in the line
        parts_.teller.idle(work_);
    }

    AppParts& parts_;
    const std::optional<std::filesystem::path> file_;
    std::shared_ptr<FirmwareUpdates> updates_;
    std::function<void()> endBar_;
    Teller::Work work_ = 0;
    unsigned number_ = 0;  ///< among installations
    std::string version_;  ///< of the offer
    std::string facts_;    ///< of the file
    std::string before_;   ///< the version that the pedal had
    FlashPhase phase_ = FlashPhase::asking;
    bool late_ = false;            ///< it should have come back, and the user knows
    std::shared_ptr<void> awake_;  ///< the computer; on the operation's thread
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
