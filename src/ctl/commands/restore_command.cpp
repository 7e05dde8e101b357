#include "ctl/commands/restore_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <utility>

#include "ctl/speech/format.h"
#include "ctl/speech/progress_line.h"
#include "loops/facts.h"

namespace kzq::ctl {

namespace {

std::string question(const RestorePlan& plan) {
    auto lost = plan.erases;
    for (const auto& [slot, info] : plan.writes) {
        if (info.occupied) {
            lost.push_back(slot);
        }
    }
    std::ranges::sort(lost);
    return lost.empty() ? loopsText(plan.writes.size()) + " will be written. Would you like to continue?"
                        : "The current audio of " + loopNames(lost) +
                              " on the 7306 will be erased. Erased audio cannot be restored. Would you like "
                              "to continue?";
}

std::string summary(const RestorePlan& plan, const Outcome& outcome) {
    if (outcome.whole()) {
        return loopsText(plan.writes.size()) + " written, " + std::to_string(plan.erases.size()) +
               " erased, " + std::to_string(plan.same.size()) + " unchanged" +
               (plan.damaged.empty() ? "." : ", " + std::to_string(plan.damaged.size()) + " left out.");
    }
    const bool unsure = outcome.done() == 0 && outcome.doubt;
    return (unsure ? ""
                   : std::to_string(outcome.done()) + " of " + std::to_string(outcome.wanted) +
                         " changes made. ") +
           "Run the same command again to continue.";
}

/// With the loops that were left out.
Outcome withDamaged(const RestorePlan& plan, Outcome outcome) {
    for (const auto slot : plan.damaged) {
        outcome.slots.push_back({.slot = slot, .trouble = Trouble{Trouble::Kind::damaged}});
    }
    outcome.wanted += plan.damaged.size();
    return outcome;
}

}  // namespace

Result<BackupIndex> RestoreCommand::find() {
    auto found = Generations(options().folder).find(options().snapshot);
    if (!found) {
        return std::move(found.error());
    }
    name_ = found->name;
    order_ = {found->folder, options().slots, options().skipDamaged};
    return indexToRestore(*order_);
}

std::optional<ExitCode> RestoreCommand::obstructed() {
    const auto index = find();
    return index ? std::nullopt : std::optional(stop(index.error(), backupSentence(index.error())));
}

ExitCode RestoreCommand::work(Pedal& pedal) {
    std::optional<ProgressLine> progress;
    std::string unread;
    const auto plan = planRestore(
        pedal, *order_,
        [&](std::uint64_t bytes) {
            progress.emplace(context().executor, context().output, !options().json, bytes);
        },
        {.begins = [&](SlotNumber slot, Step step) { progress->begin(slot, step); },
         .moved = [&](SlotNumber /*slot*/, std::uint64_t bytes) { progress->update(bytes); },
         .slot =
             [&](const SlotOutcome& loop) { unread = comparedSentence(loop) + " Nothing was changed."; }});
    if (!plan) {
        return stop(plan.error(), unread.empty() ? backupSentence(plan.error()) : unread);
    }
    tell(*plan);
    if (plan->erases.empty() && plan->writes.empty()) {
        return conclude("changed", withDamaged(*plan, {}), "There is nothing to change.");
    }
    if (const auto code = declined(pedal, question(*plan))) {
        return *code;
    }
    return restore(pedal, *plan);
}

ExitCode RestoreCommand::restore(Pedal& pedal, const RestorePlan& plan) {
    ProgressLine progress(context().executor, context().output, !options().json, bytesToMove(plan));
    const auto outcome =
        runRestore(pedal, plan,
                   {.begins = [&](SlotNumber slot, Step step) { progress.begin(slot, step); },
                    .moved = [&](SlotNumber /*slot*/, std::uint64_t bytes) { progress.update(bytes); },
                    .slot = [&](const SlotOutcome& loop) { tell(plan, loop); }});
    return conclude("written", withDamaged(plan, outcome), summary(plan, outcome));
}

void RestoreCommand::tell(const RestorePlan& plan) {
    context().output.endProgress();
    report().tell("snapshot", {{"snapshot", name_}, {"complete", plan.folder.isComplete()}},
                  "From the backup in " + plan.folder.path().string() + ":");
    for (const auto slot : allSlots()) {
        const auto* const old = plan.seen.find(slot);
        const auto oldLength = old == nullptr ? "" : lengthText(old->samples);
        if (std::ranges::binary_search(plan.same, slot)) {
            tellChange(slot, "same", "already the same.");
        } else if (std::ranges::find(plan.absent, slot) != plan.absent.end()) {
            tellChange(slot, "absent", "not in the backup; left as it is.");
        } else if (std::ranges::find(plan.damaged, slot) != plan.damaged.end()) {
            report().failed(slot, "damaged", loopName(slot) + " is damaged in the backup; left as it is.");
        } else if (std::ranges::binary_search(plan.erases, slot)) {
            tellChange(slot, "erase", "will be erased (" + oldLength + "); the slot is empty in the backup.");
        } else if (plan.writes.contains(slot)) {
            const auto length = lengthText(plan.index.loops.at(slot).samples);
            old == nullptr
                ? tellChange(slot, "write", "will be written (" + length + ").")
                : tellChange(slot, "overwrite",
                             "will be overwritten (" +
                                 std::string(length).append(" instead of ").append(oldLength) + ").");
        }
    }
}

void RestoreCommand::tellChange(SlotNumber slot, const char* change, const std::string& what) {
    report().tell("plan", {{"slot", slot.number()}, {"change", change}}, loopName(slot) + ": " + what);
}

void RestoreCommand::tell(const RestorePlan& plan, const SlotOutcome& outcome) {
    context().output.endProgress();
    const bool erased = !plan.writes.contains(outcome.slot);
    nlohmann::json details{{"slot", outcome.slot.number()}};
    if (outcome.trouble) {
        failed(erased ? "erased" : "written", outcome);
    } else if (erased) {
        report().tell("erased", std::move(details), loopName(outcome.slot) + ": erased.");
    } else {
        details["samples"] = outcome.frames.count;
        report().tell("written", std::move(details), loopName(outcome.slot) + ": written and compared.");
    }
}

}  // namespace kzq::ctl
