#include "ctl/firmware_command.h"

#include <nlohmann/json.hpp>

#include "ctl/format.h"
#include "ctl/status_report.h"

namespace kzq::ctl {

ExitCode FirmwareCommand::work(PedalWorker& pedal) {
    std::string installed;
    if (!looper()->factoryBlank()) {
        const auto status = pedal.status();
        if (!status) {
            return stop(pedal);
        }
        installed = printable(status->version);
    }
    Explanation problem;
    const auto offer = askForOffer(pedal, context().environment, problem);
    if (pedal.ended()) {
        return stop(pedal);
    }
    show(installed, offer, problem);
    return offer ? ExitCode::ok : stop(problem);
}

/// `installed` is empty for a pedal that has only its loader.
void FirmwareCommand::show(const std::string& installed, const std::optional<FirmwareOffer>& offer,
                           const Explanation& problem) {
    const bool newer = offer && (installed.empty() || FirmwareVersionFromString(installed) < offer->version);
    auto& output = context().output;
    if (options().json) {
        nlohmann::json object{{"installed", nullptr}, {"loader", installed.empty()}, {"offered", nullptr}};
        if (!installed.empty()) {
            object["installed"] = installed;
        }
        if (offer) {
            object["offered"] = {{"version", offer->entry.version},
                                 {"bytes", offer->entry.size},
                                 {"newer", newer},
                                 {"changes", offer->entry.changes}};
        } else {
            object["message"] = problem.sentence;
        }
        output.json(jsonText(object, true));
        return;
    }
    output.line(installed.empty() ? "The pedal has only its loader and waits for firmware."
                                  : "The pedal runs firmware " + installed + ".");
    if (!offer) {
        return;
    }
    output.line("Firmware " + offer->entry.version +
                (newer ? " is offered. \"kzq7306ctl firmware install\" installs it."
                       : " is offered, which is not newer."));
    for (const auto& change : offer->entry.changes) {
        output.line("  - " + noteText(change));
    }
}

std::optional<FirmwareOffer> askForOffer(PedalWorker& pedal, const Environment& environment,
                                         Explanation& problem) {
    struct Asked {
        std::optional<FirmwareOffer> offer;
        Explanation problem;
    };
    const auto asked = std::make_shared<Asked>();
    const bool came =
        pedal.attempt([asked, &environment] { asked->offer = fetchOffer(environment, asked->problem); });
    if (!came) {
        return std::nullopt;
    }
    problem = asked->problem;
    return asked->offer;
}

}  // namespace kzq::ctl
