#include "ctl/list_command.h"

#include <nlohmann/json.hpp>

#include "ctl/status_report.h"
#include "ctl/timing.h"

namespace kzq::ctl {

void ListCommand::connected(const std::shared_ptr<KZQ7306>& looper) {
    if (looper->factoryBlank()) {
        context_.fail(pedalInLoader());
        return;
    }
    patience_ = std::make_shared<Patience>(context_.executor, context_.options.patience,
                                           [context = context_] { context.fail(pedalStoppedAnswering()); });
    patience_->start();
    readStatus(context_.executor, looper,
               [self = shared_from_this()](const StatusReading& reading) { self->show(reading); });
}

void ListCommand::show(const StatusReading& reading) {
    patience_->stop();
    if (!reading.status) {
        const bool silent = !reading.answers;
        context_.executor.mainAfter(departureNotice, [self = shared_from_this(), silent] {
            self->context_.fail(self->unplugged_ ? pedalUnplugged()
                                : silent         ? pedalStoppedAnswering()
                                                 : statusUnreadable());
        });
        return;
    }
    if (context_.options.json) {
        context_.output.line(jsonText(statusJson(*reading.status), true));
    } else {
        for (const auto& line : statusTable(*reading.status)) {
            context_.output.line(line);
        }
    }
    context_.finish(ExitCode::ok);
}

}  // namespace kzq::ctl
