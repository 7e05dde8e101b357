#include "ctl/commands/doctor_command.h"

#include <nlohmann/json.hpp>

#include "ctl/speech/json_output.h"
#include "platform/new_file.h"
#include "troubleshooting/doctor.h"
#include "troubleshooting/report.h"

namespace kzq::ctl {

namespace {
constexpr auto nobodyAsks = "there is no pkexec here, which would ask for your password";
}

bool DoctorCommand::withoutPedal() {
    context_.executor.background(Priority::standard, [self = shared_from_this()] {
        self->context_.executor.main([self, code = self->work()] { self->context_.finish(code); });
    });
    return true;
}

ExitCode DoctorCommand::work() const {
    if (context_.options.remove) {
        return remove();
    }
    auto findings = context_.environment.examine();
    show(findings);
    const auto missing = missingSetUp(findings);
    if (!missing && context_.options.install) {
        Report(context_.output, context_.options.json)
            .tell("installs", {{"message", "nothing"}}, "There is nothing to install.");
    } else if (missing && context_.options.install) {
        if (const auto found = install(*missing)) {
            findings = *found;
            show(findings);
        } else {
            const auto& why = found.error().words;
            if (context_.options.json) {
                printJson(context_.output, {{"event", "not-installed"}, {"message", why}});
            }
            context_.output.error("The system rule was not installed: " + why + ". Run: " + missing->remedy);
        }
    }
    if (const auto& file = context_.options.report; !file.empty()) {
        if (const auto saved = save(findings); !saved) {
            return context_.explain(saved.error(), "The report was not saved in \"" + file.string() +
                                                       "\": " + fileSentence(saved.error()));
        }
        Report(context_.output, context_.options.json)
            .tell("report", {{"path", file.string()}}, "Report saved: " + file.string());
    }
    return summary(findings);
}

Result<std::vector<Finding>> DoctorCommand::install(const Trouble& missing) const {
    Report report(context_.output, context_.options.json);
    for (const auto& line : setUpFiles(missing)) {
        report.tell("installs", {{"message", line}}, line);
    }
    const auto commands = setUpCommands(missing);
    if (!context_.environment.asRoot || commands.empty()) {
        return Trouble{Trouble::Kind::declined,
                       {},
                       0,
                       commands.empty() ? "its files are not where this program expects them" : nobodyAsks};
    }
    report.tell("installing", {{"command", commands}}, "As root: " + commands);
    return setUpSystem({context_.executor, context_.environment.asRoot, context_.environment.examine},
                       missing);
}

ExitCode DoctorCommand::remove() const {
    Report report(context_.output, context_.options.json);
    const auto& environment = context_.environment;
    const Trouble undone{.kind = Trouble::Kind::ruleMissing, .remedy = environment.removal()};
    if (undone.remedy.empty()) {
        report.tell("removing", {{"command", ""}}, "There is nothing to remove.");
        return summary({});
    }
    const auto commands = setUpCommands(undone);
    if (environment.asRoot) {
        report.tell("removing", {{"command", commands}}, "As root: " + commands);
    }
    const auto done = environment.asRoot ? environment.asRoot(commands)
                                         : Result<void>(Trouble{Trouble::Kind::declined, {}, 0, nobodyAsks});
    if (!done) {
        return context_.explain(ExitCode::noPermission, "The system rule was not removed: " +
                                                            done.error().words + ". Run: " + undone.remedy);
    }
    return summary({});
}

Result<void> DoctorCommand::save(const std::vector<Finding>& findings) const {
    auto report = context_.environment.report();
    report.findings = findings;
    const auto text = reportText(report, context_.options.withNames);
    return writeFileNamed(context_.options.report,
                          {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

ExitCode DoctorCommand::summary(const std::vector<Finding>& findings) const {
    const auto trouble = firstTrouble(findings);
    const auto code = trouble ? exitCode(trouble->kind) : ExitCode::ok;
    if (context_.options.json) {
        printJson(context_.output, trouble ? finishedJson(code, nameOfFinding(trouble->kind),
                                                          pedalSentence(asTrouble(*trouble)))
                                           : finishedJson(code, {}, {}));
    }
    return code;
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
        for (const auto& line : doctorLines(finding)) {
            context_.output.line(line);
        }
    }
}

}  // namespace kzq::ctl
