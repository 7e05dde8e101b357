#include "ctl/commands/worker_command.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "loops/capacity.h"
#include "loops/facts.h"

namespace kzq::ctl {
namespace {

Explanation nobodyToAsk() {
    return {ExitCode::usage,
            "Confirmation needed, but standard input is not a terminal. Nothing was changed; use --yes to "
            "proceed.",
            "confirmation-needed"};
}

}  // namespace

WorkerCommand::WorkerCommand(Context context)
    : context_(std::move(context)), report_(context_.output, context_.options.json) {}

void WorkerCommand::connected(const std::shared_ptr<KZQ7306>& looper) {
    if (pedal_) {
        return;  // it was unplugged and is back, but the command ends anyway
    }
    if (looper->factoryBlank() && !takesLoader()) {
        context_.fail(pedalInLoader());
        return;
    }
    looper_ = looper;
    pedal_ = std::make_shared<PedalWorker>(context_.executor, looper, context_.options.patience);
    pedal_->start();
    context_.executor.background(Priority::standard, [self = shared_from_this()] {
        const ExitCode code = self->work(*self->pedal_);
        self->pedal_->rest();
        self->context_.executor.main([self, code] { self->context_.finish(code); });
    });
}

void WorkerCommand::disconnected() {
    if (pedal_) {
        pedal_->end(pedalUnplugged());
    }
}

void WorkerCommand::cancel() {
    if (pedal_) {
        pedal_->end(cancelledByUser());
    } else {
        context_.fail(cancelledByUser());
    }
}

ExitCode WorkerCommand::stop(const Explanation& explanation) const {
    context_.explain(explanation);
    return explanation.code;
}

ExitCode WorkerCommand::stop(const PedalWorker& pedal) const {
    return stop(pedal.ended().value_or(statusUnreadable()));
}

ExitCode WorkerCommand::conclude(const PedalWorker& pedal, const Tally& tally, const std::string& summary) {
    const auto end = pedal.ended();
    report_.finished(tally, end, summary);
    return tally.exitCode(end);
}

std::optional<ExitCode> WorkerCommand::declined(PedalWorker& pedal, const std::string& question) const {
    if (context_.options.yes) {
        return std::nullopt;
    }
    context_.output.endProgress();
    const auto answer = std::make_shared<Answer>(Answer::nobody);
    const bool answered =
        pedal.attempt([answer, question, ask = context_.environment.ask] { *answer = ask(question); });
    if (!answered) {
        return stop(pedal);
    }
    switch (*answer) {
        case Answer::yes:
            return std::nullopt;
        case Answer::no:
            return stop({ExitCode::cancelled, "Cancelled. Nothing was changed."});
        case Answer::nobody:
            break;
    }
    return stop(nobodyToAsk());
}

std::optional<Explanation> WorkerCommand::changedSince(PedalWorker& pedal, Loops& loops,
                                                       const std::vector<SlotNumber>& slots,
                                                       const char* consequence) {
    const auto now = pedal.status();
    if (!now) {
        auto end = pedal.ended().value_or(statusUnreadable());
        end.sentence += " Nothing was changed.";
        return end;
    }
    if (auto change = changedBetween(loops, now->loops, slots, consequence)) {
        return change;
    }
    loops = now->loops;
    return std::nullopt;
}

std::optional<Explanation> WorkerCommand::changedBetween(const Loops& before, const Loops& now,
                                                         const std::vector<SlotNumber>& slots,
                                                         const char* consequence) {
    for (const auto slot : slots) {
        const auto* const was = before.find(slot);
        const auto* const is = now.find(slot);
        if ((was == nullptr) != (is == nullptr) || (was != nullptr && *was != *is)) {
            const char* const what = was == nullptr  ? " was recorded"
                                     : is != nullptr ? " was changed"
                                                     : " was erased";
            return Explanation{ExitCode::pedalRefused, loopName(slot) + what +
                                                           " on the pedal in the meantime, so " +
                                                           consequence + ". Run the command again."};
        }
    }
    return std::nullopt;
}

std::optional<Explanation> WorkerCommand::impossibleLength(const Loops& loops,
                                                           const std::vector<SlotNumber>& slots) {
    for (const auto slot : slots) {
        const auto* const loop = loops.find(slot);
        if (loop != nullptr && !hasPossibleLength(*loop)) {
            const auto why = explainLoop(Trouble::Kind::tooLarge);
            return Explanation{why.code, loopName(slot) + ": " + why.sentence + " Nothing was changed."};
        }
    }
    return std::nullopt;
}

void WorkerCommand::failed(Tally& tally, SlotNumber slot, std::string_view reason,
                           const Explanation& explanation) {
    tally.failures.push_back(explanation);
    context_.output.endProgress();
    report_.failed(slot, reason, explanation.sentence);
}

namespace {

/// The work ended before the pedal could be asked what it still holds. A pedal that is there keeps its word;
/// but a request to one that has left reads like a consent.
void countUnseen(const PedalWorker& pedal, std::optional<std::uint8_t> agreed, Tally& tally) {
    const auto end = pedal.ended();
    if (agreed && end && end->code == ExitCode::cancelled) {
        tally.done += *agreed;
    } else if (pedal.begun() && agreed != 0) {
        tally.doubt = "Some of the loops may have been erased.";
    }
}

}  // namespace

std::optional<Loops> eraseAndLook(PedalWorker& pedal, Report& report, const std::vector<SlotNumber>& slots,
                                  Tally& tally) {
    const auto count = pedal.eraseLoops(slots);
    const auto status = pedal.status();
    if (!status) {
        countUnseen(pedal, count, tally);
        return std::nullopt;
    }
    for (const auto slot : slots) {
        const std::string name = loopName(slot);
        if (!status->loops.contains(slot)) {
            ++tally.done;
            report.tell("erased", {{"slot", slot.number()}}, name + ": erased.");
        } else {
            tally.failures.push_back(
                {ExitCode::pedalRefused, name + " was not erased: it is still on the pedal."});
            report.failed(slot, troubleName(Trouble::Kind::refused), tally.failures.back().sentence);
        }
    }
    return status->loops;
}

}  // namespace kzq::ctl
