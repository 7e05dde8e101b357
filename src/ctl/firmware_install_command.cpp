#include "ctl/firmware_install_command.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/firmware_command.h"
#include "ctl/format.h"
#include "ctl/timing.h"
#include "device/commands.h"

namespace kzq::ctl {
namespace {

constexpr Executor::Duration returnLimit = std::chrono::seconds(10);
/// The link's own pauses around the image.
constexpr Executor::Duration pauses = std::chrono::seconds(9);
/// No pedal takes an image slower than this, in bytes a second.
constexpr std::size_t slowest = 65'536;
/// How long the pedal still gets when the user wants an end and has set no limit.
constexpr Executor::Duration stopLimit = std::chrono::seconds(60);

constexpr const char* whatNext =
    " The pedal may have stayed in its loader. Unplug it, plug it in again and run the same command again.";

}  // namespace

FirmwareInstallCommand::FirmwareInstallCommand(Context context)
    : PedalJob(std::move(context)),
      flash_(std::make_shared<FirmwareFlash>(this->context().executor, this->context().output)) {}

std::optional<Explanation> FirmwareInstallCommand::obstacle() {
    if (options().files.empty()) {
        return std::nullopt;
    }
    Explanation problem;
    auto image = readImage(options().files.front(), problem);
    if (!image) {
        return problem;
    }
    image_ = std::move(*image);
    return std::nullopt;
}

void FirmwareInstallCommand::connected(const std::shared_ptr<KZQ7306>& looper) {
    if (!flash_->connected(*looper)) {
        PedalJob::connected(looper);
    }
}

void FirmwareInstallCommand::disconnected() {
    if (!flash_->disconnected()) {
        PedalJob::disconnected();
    } else if (flash_->underWay()) {
        report().tell("phase", {{"phase", "left"}}, "");
    }
}

void FirmwareInstallCommand::cancel() {
    if (!flash_->wantStop()) {
        PedalJob::cancel();
    } else if (flash_->underWay()) {
        context().output.error("Waiting until the firmware is complete…");
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
    bytes_ = image_.size();
    explain(installed);
    if (const auto code = declined(pedal, "Would you like to install it now?")) {
        return *code;
    }
    return install(pedal);
}

/// Gets the image that is offered for this pedal; otherwise it has been said why there is none.
std::optional<ExitCode> FirmwareInstallCommand::choose(PedalWorker& pedal, const std::string& installed) {
    Explanation problem;
    const auto offer = askForOffer(pedal, context().environment, problem);
    if (!offer) {
        return pedal.ended() ? stop(pedal) : stop(problem);
    }
    const auto present = FirmwareVersionFromString(installed);
    if (!blank_ && present.major == 0 && present.minor == 0) {
        return stop({ExitCode::pedalRefused, "The pedal's firmware is of an unknown version (" + installed +
                                                 "), so it cannot be told whether another is newer."});
    }
    if (!blank_ && !(present < offer->version)) {
        report().tell("finished", {{"installed", false}, {"version", installed}, {"exit", 0}},
                      "The pedal runs firmware " + installed + ", and " + offer->entry.version +
                          " is offered, which is not newer. There is nothing to install.");
        return ExitCode::ok;
    }
    struct Fetched {
        std::optional<FirmwareImage> image;
        Explanation problem;
    };
    const auto fetched = std::make_shared<Fetched>();
    const bool came = pedal.attempt([fetched, entry = offer->entry, &environment = context().environment] {
        fetched->image = fetchImage(environment, entry, fetched->problem);
    });
    if (!came || !fetched->image) {
        return came ? stop(fetched->problem) : stop(pedal);
    }
    image_ = std::move(*fetched->image);
    version_ = offer->entry.version;
    return std::nullopt;
}

void FirmwareInstallCommand::explain(const std::string& installed) {
    const std::string what =
        version_.empty() ? "\"" + options().files.front().string() + "\"" : "Firmware " + version_;
    nlohmann::json plan{{"bytes", bytes_}, {"verified", !version_.empty()}, {"loader", blank_}};
    plan["version"] = version_.empty() ? nlohmann::json() : nlohmann::json(version_);
    plan["present"] = blank_ ? nlohmann::json() : nlohmann::json(installed);
    report().tell("plan", std::move(plan),
                  what + " (" + sizeText(bytes_) + ") will be installed on a pedal that " +
                      (blank_ ? "has only its loader." : "runs firmware " + installed + "."));
    if (report().json()) {
        return;
    }
    auto& output = context().output;
    if (version_.empty()) {
        output.line("Nobody can verify this file: only install what comes from the pedal's maker.");
    }
    output.line("This takes about 15 seconds. Do not unplug the pedal and do not switch the computer off.");
    output.line("If the pedal stays in its loader afterwards, run the same command again.");
    output.line("Whether the loops are kept is not known, so it is wise to make a backup first.");
}

ExitCode FirmwareInstallCommand::install(PedalWorker& pedal) {
    const auto awake = keepAwake(pedal);
    const auto& hold = context().environment.holdSignals;
    hold(true);
    if (!flash_->begin([&pedal] { return pedal.ended().has_value(); })) {
        hold(false);
        return stop(pedal);
    }
    const auto failure = flash();
    flash_->rest();
    hold(false);
    return failure ? finished(false, *failure) : awaitReturn();
}

/// Waits as long as the user has patience with the pedal, and `extra`. Without a limit an end that the user
/// wants still comes.
bool FirmwareInstallCommand::await(const std::string& what, Executor::Duration extra,
                                   const FirmwareFlash::Ready& ready) {
    auto limit = options().patience;
    if (limit == Executor::Duration::zero()) {
        flash_->await(what, limit, [&ready](const auto& news) { return ready(news) || news.stopWanted; });
        limit = stopLimit;
    }
    return flash_->await(what, limit + extra, ready);
}

/// Why it failed, if it did.
std::optional<Explanation> FirmwareInstallCommand::flash() {
    flash_->send(looper(), std::move(image_));
    const auto zero = Executor::Duration::zero();
    if (!await("Asking the pedal", zero, [](const auto& news) { return news.accepted.has_value(); })) {
        return pedalStoppedAnswering();
    }
    if (!*flash_->news().accepted) {
        return looper()->disconnected() ? pedalUnplugged() : pedalBusy();
    }
    if (!blank_) {
        if (auto failure = enterLoader()) {
            return failure;
        }
    }
    return sendImage();
}

std::optional<Explanation> FirmwareInstallCommand::enterLoader() {
    tellPhase("restart", "The pedal restarts into its loader.");
    const bool came = await("Waiting for the loader", Executor::Duration::zero(),
                            [](const auto& news) { return news.completed || news.returned; });
    const auto news = flash_->news();
    if (news.returned && *news.returned != stageFactoryBlank) {
        return Explanation{ExitCode::pedalRefused,
                           "The pedal came back without entering its loader, so nothing was installed. Run "
                           "the same command again."};
    }
    if (news.returned) {
        return std::nullopt;
    }
    if (came) {
        return Explanation{ExitCode::pedalRefused,
                           "The pedal refused to enter its loader. Nothing was changed."};
    }
    looper()->interrupt();  // it may have come back and be silent
    if (auto problem =
            explainConnection(looper()->acquisitionFailure(), context().environment.ruleInstalled())) {
        problem->sentence += " Then run the same command again.";
        return problem;
    }
    return news.away ? Explanation{ExitCode::noPedal, std::string("The pedal did not come back from its "
                                                                  "restart. Nothing was installed.") +
                                                          whatNext}
                     : pedalStoppedAnswering();
}

std::optional<Explanation> FirmwareInstallCommand::sendImage() {
    tellPhase("loader",
              "The pedal is in its loader. It prepares for 8 seconds, then takes the image: do not unplug "
              "it.");
    const auto completed = [](const FirmwareFlash::News& news) { return news.completed.has_value(); };
    const auto extra = pauses + std::chrono::seconds(bytes_ / slowest);
    if (!await("Preparing and sending the image", extra, completed)) {
        looper()->interrupt();
        flash_->await("Stopping", cancelGrace, completed);
        return Explanation{
            ExitCode::pedalRefused,
            std::string("The pedal stopped answering, so the firmware is not complete.") + whatNext};
    }
    if (flash_->news().completed == true) {
        return std::nullopt;
    }
    // The news that it left may still be on their way.
    flash_->await("Stopping", departureNotice, [](const auto& news) { return news.away; });
    const auto news = flash_->news();
    if (news.away) {
        return Explanation{
            ExitCode::noPedal,
            std::string("The pedal was unplugged before the firmware was complete.") + whatNext};
    }
    return Explanation{
        ExitCode::pedalRefused,
        (news.failure == Failure::refused ? std::string("The pedal refused the firmware.")
                                          : std::string("The firmware could not be sent to its end.")) +
            whatNext};
}

ExitCode FirmwareInstallCommand::awaitReturn() {
    version_.clear();  // only the pedal knows what it runs
    tellPhase("sent", "The firmware is complete. Waiting for the pedal to come back.");
    const auto stopping = [](const FirmwareFlash::News& news) { return news.stopWanted; };
    flash_->await("Waiting for the pedal", returnLimit,
                  [&stopping](const auto& news) { return news.returned || stopping(news); });
    auto news = flash_->news();
    if (!news.returned) {
        return finished(true, {ExitCode::ok,
                               news.stopWanted ? "The firmware is installed."
                                               : "The firmware is installed, but the pedal has not come back "
                                                 "yet. If it does not, unplug it and plug it in again."});
    }
    if (*news.returned == stageFactoryBlank) {
        return finished(false, {ExitCode::pedalRefused,
                                "The pedal came back in its loader, so it did not take the firmware. Run the "
                                "same command again."});
    }
    flash_->askVersion(looper());
    flash_->await("Waiting for the pedal", returnLimit,
                  [&stopping](const auto& now) { return now.version || stopping(now); });
    version_ = printable(flash_->news().version.value_or(""));
    return finished(
        true, {ExitCode::ok, version_.empty() ? "The firmware is installed, but the pedal does not tell its "
                                                "version. Unplug it and plug it in again."
                                              : "The pedal runs firmware " + version_ + "."});
}

void FirmwareInstallCommand::tellPhase(const char* phase, const std::string& sentence) {
    report().tell("phase", {{"phase", phase}}, sentence);
}

ExitCode FirmwareInstallCommand::finished(bool installed, const Explanation& end) {
    report().tell("finished",
                  {{"installed", installed},
                   {"version", installed && !version_.empty() ? nlohmann::json(version_) : nlohmann::json()},
                   {"message", end.sentence},
                   {"exit", static_cast<int>(end.code)}},
                  end.code == ExitCode::ok ? end.sentence : "");
    if (end.code != ExitCode::ok) {
        context().output.error(end.sentence);
    }
    return end.code;
}

/// What keeps the computer awake, as long as it lives. Without it the installation goes on all the same.
std::shared_ptr<void> FirmwareInstallCommand::keepAwake(PedalWorker& pedal) {
    const auto lock = std::make_shared<AwakeLock>();
    pedal.attempt([lock, &environment = context().environment] { *lock = environment.keepAwake(); });
    if (pedal.ended()) {
        return nullptr;
    }
    if (!lock->hold) {
        context().output.error("The computer cannot be kept awake (" + noteText(lock->problem) +
                               "). See to it that it does not sleep meanwhile.");
    }
    return lock->hold;
}

}  // namespace kzq::ctl
