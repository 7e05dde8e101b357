#include "ctl/list_command.h"

#include <nlohmann/json.hpp>

#include "ctl/status_report.h"

namespace kzq::ctl {

ExitCode ListCommand::work(PedalWorker& pedal) {
    const auto status = pedal.status();
    if (!status) {
        return stop(pedal);
    }
    if (options().json) {
        context().output.json(jsonText(statusJson(*status), true));
        return ExitCode::ok;
    }
    for (const auto& line : statusTable(*status)) {
        context().output.line(line);
    }
    return ExitCode::ok;
}

}  // namespace kzq::ctl
