#include "ctl/commands/list_command.h"

#include <nlohmann/json.hpp>

#include "ctl/speech/json_output.h"
#include "ctl/speech/status_report.h"

namespace kzq::ctl {

ExitCode ListCommand::work(Pedal& pedal) {
    const auto status = pedal.status();
    if (!status) {
        return stop(status.error());
    }
    if (options().json) {
        printJson(context().output, statusJson(*status), true);
        return ExitCode::ok;
    }
    for (const auto& line : statusTable(*status)) {
        context().output.line(line);
    }
    return ExitCode::ok;
}

}  // namespace kzq::ctl
