#include "ctl/commands/convert_command.h"

#include <nlohmann/json.hpp>
#include <string>
#include <system_error>

#include "ctl/commands/conversion_progress.h"
#include "ctl/commands/stream_conversion.h"
#include "ctl/speech/format.h"
#include "ctl/speech/json_output.h"
#include "ctl/speech/report.h"
#include "loops/capacity.h"
#include "loops/facts.h"
#include "operations/sentences.h"

namespace kzq::ctl {

std::optional<ExitCode> ConvertCommand::obstructed() {
    const auto& output = context_.options.output;
    if (output == standardStream) {
        return context_.environment.terminal
                   ? std::optional(context_.explain(
                         ExitCode::usage, "Standard output is a terminal. Redirect it to a file or a pipe."))
                   : std::nullopt;
    }
    std::error_code error;
    const auto there = std::filesystem::symlink_status(output, error);
    if (there.type() == std::filesystem::file_type::not_found) {
        return std::nullopt;
    }
    if (!std::filesystem::status_known(there)) {
        return context_.explain(ExitCode::fileError,
                                "Could not write \"" + output.string() +
                                    "\": " + fileSentence({Trouble::Kind::file, {}, error.value()}));
    }
    return context_.explain(ExitCode::fileError, "\"" + output.string() +
                                                     "\" already exists. Existing files are never "
                                                     "overwritten; choose another name.");
}

bool ConvertCommand::withoutPedal() {
    context_.executor.background(Priority::standard, [self = shared_from_this()] {
        const auto& context = self->context_;
        const auto& source = context.options.files.front();
        bool tooLong = false;
        auto file =
            StreamConversion(context.environment, self->cancelled_)
                .convert({.source = source,
                          .output = context.options.output,
                          .progress =
                              [&, show = conversionProgress(context, "Converting", source.string())](
                                  std::uint64_t frames) {
                                  show(frames);
                                  if (frames > capacityFrames) {  // ends it before the file has its name
                                      tooLong = true;
                                      self->cancelled_ = true;
                                  }
                              },
                          .cancelled = &self->cancelled_,
                          .sync = true,
                          .salvage = context.options.salvage,
                          .normalize = context.options.normalize});
        if (tooLong && !file) {
            file = Trouble{Trouble::Kind::tooLarge};
        }
        context.executor.main([self, file] { self->done(file); });
    });
    return true;
}

void ConvertCommand::done(const Result<ConvertedFile>& file) {
    context_.output.endProgress();
    const auto& source = context_.options.files.front();
    const bool reads = source == standardStream;
    const auto refuse = [&] {
        context_.fail(ExitCode::fileError, (reads ? "Standard input" : "\"" + source.string() + "\"") +
                                               " is longer than the pedal's 24 minutes.");
    };
    if (!file && file.error().kind == Trouble::Kind::tooLarge) {
        refuse();
    } else if (cancelled_ && !file) {
        context_.fail(Trouble{Trouble::Kind::cancelled});
    } else if (!file) {
        context_.fail(ExitCode::fileError, conversionSentence(file.error(), reads ? "standard input" : ""));
    } else if (file->frames > capacityFrames) {  // the rest of it was not converted
        std::error_code ignored;
        std::filesystem::remove(file->path, ignored);
        refuse();
    } else {
        report(*file);
        context_.finish(ExitCode::ok);
    }
}

void ConvertCommand::report(const ConvertedFile& file) const {
    if (file.path.empty()) {
        if (file.note.verdict == "shortened" || file.note.gain != 1 || file.note.silenced) {
            context_.output.error("The audio on standard output is " + noteWords(file.note) + ".");
        }
        return;  // standard output holds the audio and nothing else
    }
    Report report(context_.output, context_.options.json);
    nlohmann::json details{{"file", file.path.string()}, {"samples", file.frames}};
    details.update(noteJson(file.note));
    report.tell("converted", details,
                file.path.string() + ": " + lengthText(file.frames) + ", " + noteWords(file.note) + ".");
    report.tell("finished", {{"exit", 0}}, {});
}

}  // namespace kzq::ctl
