#include "ctl/import_report.h"

#include <nlohmann/json.hpp>

#include "ctl/file_trouble.h"
#include "ctl/format.h"
#include "ctl/status_report.h"

namespace kzq::ctl {

std::optional<Explanation> ImportSummary::end() const {
    if (cancelled) {
        return cancelledByUser();
    }
    if (fileError) {
        return Explanation{ExitCode::fileError, {}};
    }
    if (unplugged) {
        return pedalUnplugged();
    }
    if (silent) {
        return pedalStoppedAnswering();
    }
    return std::nullopt;
}

ExitCode ImportSummary::exitCode() const {
    if (const auto early = end()) {
        return early->code;
    }
    if (failures.empty()) {
        return ExitCode::ok;
    }
    return saved == 0 ? failures.front().code : ExitCode::someFailed;
}

void ImportReport::saved(unsigned slot, const std::filesystem::path& file, std::uint64_t bytes) {
    if (json_) {
        output_.line(
            jsonText({{"event", "saved"}, {"slot", slot}, {"file", file.string()}, {"bytes", bytes}}));
    } else {
        output_.line("Loop " + std::to_string(slot) + ": saved as " + file.string() + " (" + sizeText(bytes) +
                     ").");
    }
}

void ImportReport::failed(unsigned slot, Failure reason) {
    failure(slot, failureName(reason),
            "Loop " + std::to_string(slot) + " was not saved: " + explainLoop(reason).sentence);
}

void ImportReport::notWritten(unsigned slot, const std::filesystem::path& folder, int error) {
    failure(slot, "file",
            "Loop " + std::to_string(slot) + " was not saved: the file could not be written in " +
                folder.string() + ": " + fileTrouble(error));
}

void ImportReport::failure(unsigned slot, std::string_view reason, const std::string& sentence) {
    if (json_) {
        output_.line(
            jsonText({{"event", "failed"}, {"slot", slot}, {"reason", reason}, {"message", sentence}}));
    }
    output_.error(sentence);
}

void ImportReport::finished(const ImportSummary& summary) {
    output_.endProgress();
    const auto end = summary.end();
    if (end && !end->sentence.empty()) {
        output_.error(end->sentence);
    }
    if (json_) {
        output_.line(jsonText({{"event", "finished"},
                               {"wanted", summary.wanted},
                               {"saved", summary.saved},
                               {"exit", static_cast<int>(summary.exitCode())}}));
    } else if (summary.wanted == 0) {
        if (!end) {
            output_.line("The pedal holds no loops.");
        }
    } else if (summary.saved == summary.wanted) {
        output_.line(loopsText(summary.saved) + " saved.");
    } else {
        output_.line(std::to_string(summary.saved) + " of " + loopsText(summary.wanted) + " saved.");
    }
}

}  // namespace kzq::ctl
