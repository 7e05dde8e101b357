#include "ctl/commands/firmware_command.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/speech/json_output.h"

namespace kzq::ctl {

ExitCode FirmwareCommand::work(Pedal& pedal) {
    const auto installed = installedFirmware(pedal);
    if (!installed) {
        return stop(installed.error());
    }
    const auto offer = askForOffer(pedal, context().environment, *installed);
    if (const auto end = pedal.stopped()) {
        return stop(*end);
    }
    show(*installed, offer);
    if (offer) {
        return ExitCode::ok;
    }
    const auto& why = offer.error();
    return options().json ? exitCode(why.kind) : stop(why, firmwareSentence(why));
}

/// `installed` is empty for a pedal that has only its loader.
void FirmwareCommand::show(const std::string& installed, const Result<FirmwareOffer>& offer) {
    auto& output = context().output;
    if (options().json) {
        nlohmann::json object{
            {"installed", nullptr}, {"loader", installed.empty()}, {"newest", nullptr}, {"offered", nullptr}};
        if (!installed.empty()) {
            object["installed"] = installed;
        }
        if (!offer) {
            const auto code = exitCode(offer.error().kind);
            const auto sentence = firmwareSentence(offer.error());
            output.error(sentence);
            object.update(finishedJson(code, nameOfEnd(offer.error().kind, code), sentence));
        } else {
            object["newest"] = offer->entry.version;
        }
        if (offer && offer->image) {
            object["offered"] = {{"version", offer->entry.version},
                                 {"imageBytes", offer->entry.size},
                                 {"changes", offer->entry.changes}};
        }
        printJson(output, std::move(object), true);
        return;
    }
    output.line(installed.empty() ? "The pedal is running only its loader and needs firmware."
                                  : "The pedal runs firmware " + installed + ".");
    if (!offer) {
        return;
    }
    if (!offer->image) {
        output.line("The newest firmware is " + offer->entry.version + ", so there is nothing to install.");
        return;
    }
    output.line("Firmware " + offer->entry.version +
                " is available. Run \"kzq7306ctl firmware install\" to install it.");
    for (const auto& change : offer->entry.changes) {
        output.line("  - " + noteText(change));
    }
}

}  // namespace kzq::ctl
