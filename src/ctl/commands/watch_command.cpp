#include "ctl/commands/watch_command.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/speech/json_output.h"
#include "ctl/speech/status_report.h"

namespace kzq::ctl {

namespace {

const Trouble outputLost{Trouble::Kind::outputLost};

}  // namespace

void WatchCommand::connected(const std::shared_ptr<KZQ7306>& looper) {
    present_ = true;
    last_.reset();
    if (looper->factoryBlank()) {
        say("The pedal is connected. It is running only its loader and needs firmware.", "loader");
        return;
    }
    say("The pedal is connected.", "connected");
    watch_.emplace(context_.executor, looper, context_.options.patience,
                   [context = context_, weak = std::weak_ptr(looper)] {
                       if (const auto silent = weak.lock()) {
                           context.executor.main(
                               [context] { context.output.error(pedalSentence({Trouble::Kind::silent})); });
                           silent->interrupt();  // the polls go on
                       }
                   });
    looper->refresh();
}

void WatchCommand::disconnected() {
    watch_.reset();
    say(present_ ? "The pedal was unplugged." : "No pedal is connected; waiting for one.",
        present_ ? "disconnected" : "waiting");
    present_ = false;
}

void WatchCommand::changed(const Status& status) {
    if (!present_) {
        return;  // it was unplugged in the meantime
    }
    if (context_.options.json) {
        nlohmann::json object = statusJson(status);
        object["event"] = "status";
        printJson(context_.output, std::move(object));
    } else {
        if (last_) {
            for (const auto& line : statusChanges(last_->loops, status.loops)) {
                context_.output.line(line);
            }
        }
        context_.output.line(statusSummary(status));
    }
    last_ = status;
    if (!context_.output.flush()) {
        context_.fail(outputLost, conversionSentence(outputLost));
    }
}

void WatchCommand::say(const std::string& text, const char* event) {
    if (context_.options.json) {
        printJson(context_.output, {{"event", event}});
    } else {
        context_.output.line(text);
    }
    if (!context_.output.flush()) {
        context_.fail(outputLost, conversionSentence(outputLost));
    }
}

}  // namespace kzq::ctl
