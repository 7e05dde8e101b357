#include "ctl/commands/recording_command.h"

#include <nlohmann/json.hpp>

namespace kzq::ctl {

bool RecordingCommand::withoutPedal() {
    context_.executor.background(Priority::standard, [self = shared_from_this()] {
        const auto& [options, environment] = std::tie(self->context_.options, self->context_.environment);
        const auto done = environment.capture(options.files.front(), options.output, !options.withoutAudio);
        self->context_.executor.main([self, done] {
            const auto& context = self->context_;
            if (!done) {
                context.fail(done.error(), badRecordingSentence(done.error()));
                return;
            }
            Report report(context.output, context.options.json);
            report.tell("converted", {{"file", context.options.output.string()}},
                        context.options.output.string() + ": " +
                            (context.options.withoutAudio ? "without" : "with") + " audio.");
            report.tell("finished", {{"exit", 0}}, {});
            context.finish(ExitCode::ok);
        });
    });
    return true;
}

}  // namespace kzq::ctl
