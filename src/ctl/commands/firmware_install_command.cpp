#include "ctl/commands/firmware_install_command.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/commands/firmware_installation.h"
#include "ctl/speech/format.h"

namespace kzq::ctl {
namespace {

/// False when nothing is under way. Any thread.
bool stopLater(FirmwareFlash& flash, Output& output) {
    if (!flash.wantStop()) {
        return false;
    }
    if (flash.underWay()) {
        output.error("Waiting until the firmware is complete…");
    }
    return true;
}

}  // namespace

FirmwareInstallCommand::FirmwareInstallCommand(Context context)
    : WorkerCommand(std::move(context)),
      flash_(std::make_shared<FirmwareFlash>(this->context().executor, this->context().output)) {}

std::optional<Explanation> FirmwareInstallCommand::obstacle() {
    if (options().files.empty()) {
        return std::nullopt;
    }
    auto image = readImage(options().files.front());
    if (!image) {
        return explainFirmware(image.error());
    }
    image_ = std::move(*image);
    return std::nullopt;
}

void FirmwareInstallCommand::connected(const std::shared_ptr<KZQ7306>& looper) {
    if (!flash_->connected(*looper)) {
        WorkerCommand::connected(looper);
    }
}

void FirmwareInstallCommand::disconnected() {
    if (!flash_->disconnected()) {
        WorkerCommand::disconnected();
    } else if (flash_->underWay()) {
        report().tell("phase", {{"phase", "left"}}, "");
    }
}

void FirmwareInstallCommand::cancel() {
    if (!stopLater(*flash_, context().output)) {
        WorkerCommand::cancel();
    }
}

ExitCode FirmwareInstallCommand::work(PedalWorker& pedal) {
    blank_ = looper()->factoryBlank();
    std::string installed;
    if (!blank_) {
        const auto status = pedal.status();
        if (!status) {
            return stop(pedal);
        }
        installed = printable(status->version);
    }
    if (image_.empty()) {
        if (const auto code = choose(pedal, installed)) {
            return *code;
        }
    }
    explain(installed);
    if (const auto code = declined(pedal, "Would you like to install it now?")) {
        return *code;
    }
    return install(pedal);
}

/// Gets the image that is offered for this pedal; otherwise the user has been given the reason.
std::optional<ExitCode> FirmwareInstallCommand::choose(PedalWorker& pedal, const std::string& installed) {
    auto offer = askForOffer(pedal, context().environment, installed);
    if (!offer) {
        return pedal.ended() ? stop(pedal) : stop(explainFirmware(offer.error()));
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

void FirmwareInstallCommand::explain(const std::string& installed) {
    const std::string what =
        version_.empty() ? "\"" + options().files.front().string() + "\"" : "Firmware " + version_;
    nlohmann::json plan{{"imageBytes", image_.size()}, {"verified", !version_.empty()}, {"loader", blank_}};
    plan["version"] = version_.empty() ? nlohmann::json() : nlohmann::json(version_);
    plan["present"] = blank_ ? nlohmann::json() : nlohmann::json(installed);
    report().tell("plan", std::move(plan),
                  what + " (" + sizeText(image_.size()) + ") will be installed on a pedal that " +
                      (blank_ ? "is running only its loader." : "runs firmware " + installed + "."));
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
ExitCode FirmwareInstallCommand::install(PedalWorker& pedal) {
    const auto awake = keepAwake(pedal);
    const auto& hold = context().environment.holdSignals;
    if (!flash_->begin([&pedal] { return pedal.ended().has_value(); })) {
        return stop(pedal);
    }
    hold([flash = flash_, &output = context().output] { stopLater(*flash, output); });
    const auto code =
        FirmwareInstallation(context(), report(), flash_, looper()).run(std::move(image_), blank_);
    hold({});
    return code;
}

/// Keeps the computer awake as long as it lives. The installation goes on even without it.
std::shared_ptr<void> FirmwareInstallCommand::keepAwake(PedalWorker& pedal) {
    const auto lock = std::make_shared<AwakeLock>();
    pedal.attempt([lock, &environment = context().environment] { *lock = environment.keepAwake(); });
    if (pedal.ended()) {
        return nullptr;
    }
    if (!lock->hold) {
        context().output.error("Could not keep the computer awake (" + noteText(lock->problem) +
                               "). Make sure it does not go to sleep.");
    }
    return lock->hold;
}

}  // namespace kzq::ctl
