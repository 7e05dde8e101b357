#include "ctl/commands/firmware_install_command.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/speech/format.h"
#include "ctl/speech/json_output.h"
#include "updates/firmware_version.h"

namespace kzq::ctl {
namespace {

constexpr const char* again = "run the same command again";

}  // namespace

std::optional<ExitCode> FirmwareInstallCommand::obstructed() {
    if (options().files.empty()) {
        return std::nullopt;
    }
    auto image = readImage(options().files.front());
    if (!image) {
        return stop(image.error(), firmwareSentence(image.error()));
    }
    image_ = std::move(*image);
    return std::nullopt;
}

void FirmwareInstallCommand::cancel() {
    askToWait();
    PedalCommand::cancel();
}

/// Any thread.
void FirmwareInstallCommand::askToWait() {
    if (sending_) {
        context().output.error("Waiting until the firmware is complete…");
    }
}

ExitCode FirmwareInstallCommand::work(Pedal& pedal) {
    const bool blank = pedal.link()->factoryBlank();
    const auto installed = installedFirmware(pedal);
    if (!installed) {
        return stop(installed.error());
    }
    if (image_.empty()) {
        if (const auto code = choose(pedal, *installed)) {
            return *code;
        }
    }
    explain(*installed, blank);
    if (const auto code = declined(pedal, "Would you like to install it now?")) {
        return *code;
    }
    return install(pedal);
}

/// Gets the image that is offered for this pedal; otherwise the user has been given the reason.
std::optional<ExitCode> FirmwareInstallCommand::choose(Pedal& pedal, const std::string& installed) {
    auto offer = askForOffer(pedal, context().environment, installed);
    if (!offer) {
        const auto end = pedal.stopped();
        return end ? stop(*end) : stop(offer.error(), firmwareSentence(offer.error()));
    }
    if (!offer->image) {
        report().tell("finished", {{"installed", false}, {"version", installed}, {"exit", 0}},
                      "The pedal runs firmware " + installed + " and the newest is " + offer->entry.version +
                          ". There is nothing to install.");
        return ExitCode::ok;
    }
    image_ = std::move(*offer->image);
    version_ = offer->entry.version;
    return std::nullopt;
}

void FirmwareInstallCommand::explain(const std::string& installed, bool blank) {
    const std::string what =
        version_.empty() ? "\"" + options().files.front().string() + "\"" : "Firmware " + version_;
    nlohmann::json plan{{"imageBytes", image_.size()}, {"verified", !version_.empty()}, {"loader", blank}};
    plan["version"] = version_.empty() ? nlohmann::json() : nlohmann::json(version_);
    plan["present"] = blank ? nlohmann::json() : nlohmann::json(installed);
    report().tell("plan", std::move(plan),
                  what + " (" + sizeText(image_.size()) + ") will be installed on a pedal that " +
                      (blank ? "is running only its loader." : "runs firmware " + installed + "."));
    if (report().json()) {
        return;
    }
    auto& output = context().output;
    if (version_.empty()) {
        output.line("This file cannot be verified. Install it only if it comes from the pedal's maker.");
    }
    output.line("This takes about 15 seconds. Do not unplug the pedal or turn off the computer.");
    output.line("If the pedal stays in its loader afterwards, run the same command again.");
    output.line("It is not known whether the loops survive, so make a backup first.");
}

/// Signals are held until the end, so that the exit code says what became of the pedal.
ExitCode FirmwareInstallCommand::install(Pedal& pedal) {
    const auto awake = keepAwake(pedal);
    const FlashEvents events{
        .phase = [&](FlashPhase phase) { enter(pedal, phase); },
        .waiting =
            [this](Executor::Duration waited) {
                const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(waited).count();
                context().output.progress(waitsFor_ + ": " + std::to_string(seconds) + " s");
            }};
    auto end = runFlash(pedal, image_, events);
    sending_ = false;
    consentMissing_ = end.how == FlashEnd::How::sent && end.why;
    end = confirmFlash(pedal, end, events);
    context().output.endProgress();
    const auto code = finish(end);
    context().environment.holdSignals({});
    return code;
}

void FirmwareInstallCommand::enter(Pedal& pedal, FlashPhase phase) {
    const auto tell = [this](const char* name, const char* waitsFor, const std::string& sentence) {
        waitsFor_ = waitsFor;
        context().output.endProgress();
        report().tell("phase", {{"phase", name}}, sentence);
    };
    switch (phase) {
        case FlashPhase::asking:
            sending_ = true;
            waitsFor_ = "Asking the pedal";
            context().environment.holdSignals(
                [self = shared_from_this(), this, pedal = pedal.shared_from_this()] {
                    askToWait();
                    pedal->stop(Trouble{Trouble::Kind::cancelled});
                });
            return;
        case FlashPhase::restarting:
            tell("restart", "Waiting for the loader", "The pedal is restarting into its loader.");
            return;
        case FlashPhase::left:
            tell("left", "Waiting for the loader", "");
            return;
        case FlashPhase::sending:
            tell("loader", "Preparing and sending the image",
                 "The pedal is in its loader. It prepares for 8 seconds, then receives the image. Do not "
                 "unplug it.");
            return;
        case FlashPhase::sent:
            sending_ = false;
            tell("sent", "Waiting for the pedal", flashSentence({.how = FlashEnd::How::sent}, again));
            return;
        case FlashPhase::cameBack:
            return;  // which ends it
    }
}

/// Keeps the computer awake as long as it lives. The installation goes on even without it.
std::shared_ptr<void> FirmwareInstallCommand::keepAwake(Pedal& pedal) {
    const auto lock = std::make_shared<AwakeLock>();
    if (!pedal.aside([lock, &environment = context().environment] { *lock = environment.keepAwake(); })) {
        return nullptr;
    }
    if (!lock->hold) {
        context().output.error("Could not keep the computer awake (" + noteText(lock->problem) +
                               "). Make sure it does not go to sleep.");
    }
    return lock->hold;
}

/// Whether the pedal, which is back, runs what was sent. Of a file nobody knows the version; the pedal's
/// consent has to do.
bool FirmwareInstallCommand::isInstalled(const FlashEnd& end) const {
    if (end.how != FlashEnd::How::confirmed) {
        return false;
    }
    return version_.empty() ? !consentMissing_
                            : !(FirmwareVersionFromString(end.version) < FirmwareVersionFromString(version_));
}

ExitCode FirmwareInstallCommand::finish(const FlashEnd& end) {
    using How = FlashEnd::How;
    const bool installed = isInstalled(end);
    auto shown = end;
    shown.version = printable(end.version);
    if (shown.why) {
        shown.why = foundAbout(*shown.why, context().environment.diagnose());
    }
    const bool unknown =
        end.how == How::unconfirmed || (end.how == How::confirmed && version_.empty() && !installed);
    const auto kind = end.how == How::notSent    ? shown.why.value().kind
                      : end.how == How::inLoader ? Trouble::Kind::stillInLoader
                      : unknown                  ? Trouble::Kind::unconfirmed
                                                 : Trouble::Kind::olderVersion;
    const auto code = installed ? ExitCode::ok : exitCode(kind);
    auto sentence = flashSentence(shown, again);
    if (end.how == How::confirmed && !installed) {
        sentence += version_.empty()
                        ? " It did not confirm the image, so check that this is the version you sent."
                        : " Firmware " + version_ + " was sent, but is not installed.";
    }
    auto details = finishedJson(code, nameOfEnd(kind, code), sentence);
    details["installed"] = unknown ? nlohmann::json() : nlohmann::json(installed);
    details["version"] = end.how == How::confirmed ? nlohmann::json(shown.version) : nlohmann::json();
    report().tell("finished", std::move(details), installed ? sentence : "");
    if (!installed) {
        context().output.error(sentence);
    }
    return code;
}

}  // namespace kzq::ctl
