#include "ctl/doctor_command.h"

#include <nlohmann/json.hpp>

#include "ctl/status_report.h"

namespace kzq::ctl {

bool DoctorCommand::withoutPedal() {
    const auto findings = context_.environment.diagnose();
    show(findings);
    const auto trouble = firstTrouble(findings);
    context_.finish(trouble ? explain(*trouble).code : ExitCode::ok);
    return true;
}

void DoctorCommand::show(const std::vector<Finding>& findings) const {
    for (const Finding& finding : findings) {
        if (context_.options.json) {
            context_.output.json(jsonText(
                {{"ok", !finding.present}, {"finding", finding.sentence}, {"command", finding.remedy}}));
            continue;
        }
        context_.output.line((finding.present ? "!!  " : "ok  ") + finding.sentence);
        if (finding.present && !finding.remedy.empty()) {
            context_.output.line("      " + finding.remedy);
        }
    }
}

}  // namespace kzq::ctl
