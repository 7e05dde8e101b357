#include "ctl/commands/pedal_command.h"

#include <utility>

namespace kzq::ctl {

PedalCommand::PedalCommand(Context context)
    : context_(std::move(context)), report_(context_.output, context_.options.json) {}

void PedalCommand::connected(const std::shared_ptr<KZQ7306>& looper) {
    if (std::exchange(found_, true)) {
        if (pedal_) {
            pedal_->returned(looper->stage());
        }
        return;
    }
    if (looper->factoryBlank() && !takesLoader()) {
        context_.fail(Trouble{Trouble::Kind::inLoader});
        return;
    }
    pedal_ =
        Pedal::create(context_.executor, looper, {.silence = context_.options.patience, .leaveBehind = true});
    context_.executor.background(Priority::standard, [self = shared_from_this(), pedal = pedal_.get()] {
        const ExitCode code = self->work(*pedal);
        self->context_.executor.main([self, code] {
            self->pedal_.reset();
            self->context_.finish(code);
        });
    });
}

void PedalCommand::disconnected() {
    if (pedal_) {
        pedal_->left();
    }
}

void PedalCommand::cancel() {
    if (pedal_) {
        pedal_->stop(Trouble{Trouble::Kind::cancelled});
    } else {
        context_.fail(Trouble{Trouble::Kind::cancelled});
    }
}

std::optional<ExitCode> PedalCommand::declined(Pedal& pedal, const std::string& question) const {
    if (context_.options.yes) {
        return std::nullopt;
    }
    context_.output.endProgress();
    const auto answer = std::make_shared<Answer>(Answer::nobody);
    const bool answered =
        pedal.aside([answer, question, ask = context_.environment.ask] { *answer = ask(question); });
    if (!answered) {
        return stop(pedal.stopped().value());
    }
    switch (*answer) {
        case Answer::yes:
            return std::nullopt;
        case Answer::no:
            return stop(Trouble{Trouble::Kind::declined});
        case Answer::nobody:
            break;
    }
    return stop(Trouble{Trouble::Kind::nobodyToAsk});
}

void PedalCommand::failed(std::string_view done, const SlotOutcome& outcome) {
    context_.output.endProgress();
    report_.failed(outcome.slot, nameOfFailure(outcome.trouble.value().kind), slotSentence(done, outcome));
}

ExitCode PedalCommand::conclude(std::string_view done, const Outcome& outcome, const std::string& summary) {
    auto sentence = outcome.endIsTold() ? "" : endSentence(done, outcome);
    if (outcome.end && outcome.end->kind == Trouble::Kind::changed) {
        sentence += " Run the command again.";
    }
    if (outcome.end && !outcome.begun && outcome.slots.empty()) {
        return stop(*outcome.end, sentence);
    }
    return report_.finished(outcome, sentence, summary);
}

}  // namespace kzq::ctl
