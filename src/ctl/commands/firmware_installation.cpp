#include "ctl/commands/firmware_installation.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/speech/format.h"
#include "ctl/speech/json_output.h"
#include "ctl/speech/timing.h"
#include "device/wire.h"

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
    " The pedal may still be in its loader. Unplug it, plug it in again and run the same command again.";

}  // namespace

ExitCode FirmwareInstallation::run(FirmwareImage image, bool blank) {
    const auto failure = flash(std::move(image), blank);
    return failure ? finished(false, *failure) : awaitReturn();
}

/// Waits as long as the user has patience with the pedal, and `extra`. Without a limit an end that the user
/// wants still comes.
bool FirmwareInstallation::await(const std::string& what, Executor::Duration extra,
                                 const FirmwareFlash::Ready& ready) {
    auto limit = context_.options.patience;
    if (limit == Executor::Duration::zero()) {
        flash_->await(what, limit, [&ready](const auto& news) { return ready(news) || news.stopWanted; });
        limit = stopLimit;
    }
    return flash_->await(what, limit + extra, ready);
}

/// Why it failed, if it did.
std::optional<Explanation> FirmwareInstallation::flash(FirmwareImage image, bool blank) {
    const std::size_t bytes = image.size();
    flash_->send(looper_, std::move(image));
    const auto zero = Executor::Duration::zero();
    if (!await("Asking the pedal", zero, [](const auto& news) { return news.accepted.has_value(); })) {
        return pedalStoppedAnswering();
    }
    if (!*flash_->news().accepted) {
        return looper_->disconnected() ? pedalUnplugged() : pedalBusy();
    }
    if (!blank) {
        if (auto failure = enterLoader()) {
            return failure;
        }
    }
    return sendImage(bytes);
}

std::optional<Explanation> FirmwareInstallation::enterLoader() {
    tellPhase("restart", "The pedal is restarting into its loader.");
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
    looper_->interrupt();  // it may have come back and be silent
    if (auto problem = explainConnection(looper_->acquisitionTrouble(), context_.environment.diagnose())) {
        problem->sentence += " Then run the same command again.";
        return problem;
    }
    return news.away ? Explanation{ExitCode::noPedal, std::string("The pedal did not come back after "
                                                                  "restarting. Nothing was installed.") +
                                                          whatNext}
                     : pedalStoppedAnswering();
}

std::optional<Explanation> FirmwareInstallation::sendImage(std::size_t bytes) {
    tellPhase("loader",
              "The pedal is in its loader. It prepares for 8 seconds, then receives the image. Do not "
              "unplug it.");
    const auto before = flash_->news().departures;
    const auto completed = [](const FirmwareFlash::News& news) { return news.completed.has_value(); };
    const auto left = [before](const FirmwareFlash::News& news) { return news.departures != before; };
    const auto extra = pauses + std::chrono::seconds(bytes / slowest);
    if (!await("Preparing and sending the image", extra, completed)) {
        looper_->interrupt();
        if (!flash_->await("Stopping", cancelGrace, completed) || flash_->news().completed != true) {
            return Explanation{
                ExitCode::pedalRefused,
                std::string("The pedal stopped answering, so the firmware is not complete.") + whatNext};
        }
    }
    if (flash_->news().completed == true) {
        return std::nullopt;
    }
    // The news that it left may still be on their way.
    flash_->await("Stopping", departureNotice, left);
    const auto news = flash_->news();
    if (left(news)) {
        return Explanation{
            ExitCode::noPedal,
            std::string("The pedal was unplugged before the firmware was complete.") + whatNext};
    }
    return Explanation{ExitCode::pedalRefused,
                       (news.trouble && news.trouble->kind == Trouble::Kind::refused
                            ? std::string("The pedal refused the firmware.")
                            : std::string("The firmware could not be sent completely.")) +
                           whatNext};
}

ExitCode FirmwareInstallation::awaitReturn() {
    tellPhase("sent", "The firmware is complete. Waiting for the pedal to come back.");
    const auto stopping = [](const FirmwareFlash::News& news) { return news.stopWanted; };
    flash_->await("Waiting for the pedal", returnLimit,
                  [&stopping](const auto& news) { return news.returned || stopping(news); });
    auto news = flash_->news();
    if (!news.returned) {
        if (!news.stopWanted) {
            looper_->interrupt();  // it may have come back and be silent, which would hold the main thread
        }
        return finished(true, {ExitCode::ok,
                               news.stopWanted ? "The firmware is installed."
                                               : "The firmware is installed, but the pedal has not come back "
                                                 "yet. If it does not, unplug it and plug it in again."});
    }
    if (*news.returned == stageFactoryBlank) {
        return finished(false,
                        {ExitCode::pedalRefused,
                         "The pedal came back in its loader, so it did not accept the firmware. Run the "
                         "same command again."});
    }
    flash_->askVersion(looper_);
    flash_->await("Waiting for the pedal", returnLimit,
                  [&stopping](const auto& now) { return now.version || stopping(now); });
    version_ = printable(flash_->news().version.value_or(""));
    return finished(true, {ExitCode::ok, version_.empty()
                                             ? "The firmware is installed, but the pedal does not report its "
                                               "version. Unplug it and plug it in again."
                                             : "The pedal runs firmware " + version_ + "."});
}

void FirmwareInstallation::tellPhase(const char* phase, const std::string& sentence) {
    report_.tell("phase", {{"phase", phase}}, sentence);
}

ExitCode FirmwareInstallation::finished(bool installed, const Explanation& end) {
    auto details = finishedJson(end.code, troubleName(end), end.sentence);
    details["installed"] = installed;
    details["version"] = installed && !version_.empty() ? nlohmann::json(version_) : nlohmann::json();
    report_.tell("finished", std::move(details), end.code == ExitCode::ok ? end.sentence : "");
    if (end.code != ExitCode::ok) {
        context_.output.error(end.sentence);
    }
    return end.code;
}

}  // namespace kzq::ctl
