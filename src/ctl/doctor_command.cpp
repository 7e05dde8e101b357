#include "ctl/doctor_command.h"

#include <nlohmann/json.hpp>

namespace kzq::ctl {

namespace {

ExitCode codeOf(PedalTrouble trouble) {
    switch (trouble) {
        case PedalTrouble::nothingOnBus:
            return ExitCode::noPedal;
        case PedalTrouble::ruleMissing:
        case PedalTrouble::ruleNotInForce:
            return ExitCode::noPermission;
        default:
            return ExitCode::pedalRefused;
    }
}

}  // namespace

bool DoctorCommand::withoutPedal() {
    const auto findings = context_.environment.diagnose();
    show(findings);
    const auto trouble = firstTrouble(findings);
    context_.finish(trouble ? codeOf(trouble->trouble) : ExitCode::ok);
    return true;
}

void DoctorCommand::show(const std::vector<Finding>& findings) const {
    for (const Finding& finding : findings) {
        if (context_.options.json) {
            const nlohmann::ordered_json line{
                {"ok", !finding.present}, {"finding", finding.sentence}, {"command", finding.mend}};
            context_.output.line(line.dump());
            continue;
        }
        context_.output.line((finding.present ? "!!  " : "ok  ") + finding.sentence);
        if (finding.present && !finding.mend.empty()) {
            context_.output.line("      " + finding.mend);
        }
    }
}

}  // namespace kzq::ctl
