#include "ctl/speech/report.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/speech/json_output.h"

namespace kzq::ctl {

void Report::tell(const char* event, nlohmann::json details, const std::string& sentence) {
    if (json_) {
        details["event"] = event;
        printJson(output_, std::move(details));
    } else if (!sentence.empty()) {
        output_.line(sentence);
    }
}

void Report::failed(SlotNumber slot, std::string_view reason, const std::string& sentence) {
    tell("failed", {{"slot", slot.number()}, {"trouble", reason}, {"message", sentence}}, {});
    output_.error(sentence);
}

ExitCode Report::stopped(const Trouble& trouble, const std::string& sentence) {
    const auto code = exitCode(trouble.kind);
    return stopped(code, nameOfEnd(trouble.kind, code), sentence);
}

ExitCode Report::stopped(ExitCode code, std::string_view reason, const std::string& sentence) {
    output_.endProgress();
    output_.error(sentence);
    if (json_) {
        printJson(output_, finishedJson(code, reason, sentence));
    }
    return code;
}

ExitCode Report::finished(const Outcome& outcome, const std::string& sentence, const std::string& summary) {
    output_.endProgress();
    const auto code = exitCode(outcome);
    nlohmann::json details{
        {"wanted", outcome.wanted}, {"done", outcome.done()}, {"exit", static_cast<int>(code)}};
    if (code != ExitCode::ok) {
        details["trouble"] = nameOfEnd(outcome.end ? std::optional(outcome.end->kind) : std::nullopt, code);
    }
    if (!sentence.empty()) {
        output_.error(sentence);
        details["message"] = sentence;
    }
    tell("finished", std::move(details), summary);
    return code;
}

}  // namespace kzq::ctl
