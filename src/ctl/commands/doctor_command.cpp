#include "ctl/commands/doctor_command.h"

#include <nlohmann/json.hpp>

#include "ctl/speech/json_output.h"

namespace kzq::ctl {

bool DoctorCommand::withoutPedal() {
    const auto findings = context_.environment.examine();
    show(findings);
    const auto trouble = firstTrouble(findings);
    const auto code = trouble ? exitCode(trouble->kind) : ExitCode::ok;
    if (context_.options.json) {
        printJson(context_.output, trouble ? finishedJson(code, nameOfFinding(trouble->kind),
                                                          pedalSentence(asTrouble(*trouble)))
                                           : finishedJson(code, {}, {}));
    }
    context_.finish(code);
    return true;
}

void DoctorCommand::show(const std::vector<Finding>& findings) const {
    for (const Finding& finding : findings) {
        if (context_.options.json) {
            printJson(context_.output, {{"event", "finding"},
                                        {"ok", !finding.present},
                                        {"name", nameOfFinding(finding.kind)},
                                        {"message", finding.sentence},
                                        {"command", finding.remedy}});
            continue;
        }
        context_.output.line((finding.present ? "!!  " : "ok  ") + finding.sentence);
        if (finding.present && !finding.remedy.empty()) {
            context_.output.line("      " + finding.remedy);
        }
    }
}

}  // namespace kzq::ctl
