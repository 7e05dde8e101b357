#include "ctl/convert_command.h"

#include <nlohmann/json.hpp>
#include <string>
#include <system_error>

#include "ctl/format.h"
#include "ctl/job_report.h"
#include "slots/capacity.h"

namespace kzq::ctl {

std::optional<Explanation> ConvertCommand::obstacle() {
    const auto& output = context_.options.output;
    std::error_code error;
    if (std::filesystem::symlink_status(output, error).type() == std::filesystem::file_type::not_found) {
        return std::nullopt;
    }
    return Explanation{ExitCode::fileError,
                       "\"" + output.string() +
                           "\" already exists. Existing files are never overwritten; choose another name."};
}

bool ConvertCommand::withoutPedal() {
    context_.executor.background(Priority::standard, [self = shared_from_this()] {
        const auto& context = self->context_;
        const bool shown = !context.options.json;
        const auto progress = [&context, shown](std::uint64_t frames) {
            if (shown) {
                context.output.progress("Converting: " + clockText(frames / framesPerSecond));
            }
        };
        const auto file = context.environment.convert({.source = context.options.files.front(),
                                                       .output = context.options.output,
                                                       .progress = progress,
                                                       .cancelled = &self->cancelled_,
                                                       .sync = true});
        context.executor.main([self, file] { self->done(file); });
    });
    return true;
}

void ConvertCommand::done(const ConvertedFile& file) {
    context_.output.endProgress();
    const std::string name = "\"" + context_.options.files.front().string() + "\"";
    if (file.problem.empty() && file.frames > capacityFrames) {  // the rest of it was not converted
        std::error_code ignored;
        std::filesystem::remove(file.path, ignored);
        context_.fail({ExitCode::fileError, name + " is longer than the pedal's 24 minutes."});
    } else if (file.problem.empty()) {
        JobReport(context_.output, context_.options.json)
            .tell("converted", {{"file", file.path.string()}, {"samples", file.frames}},
                  file.path.string() + ": " + lengthText(file.frames) + ".");
        context_.finish(ExitCode::ok);
    } else if (cancelled_) {
        context_.fail(cancelledByUser());
    } else {
        context_.fail({ExitCode::fileError, file.problem});
    }
}

}  // namespace kzq::ctl
