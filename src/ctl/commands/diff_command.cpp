#include "ctl/commands/diff_command.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/speech/format.h"
#include "ctl/speech/progress_line.h"
#include "loops/facts.h"

namespace kzq::ctl {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

/// What --json calls it; empty for a loop that was not compared.
std::string stateOf(const SlotOutcome& outcome) {
    if (!outcome.trouble) {
        return outcome.did == Did::sameLength ? "same-length" : "same";
    }
    const auto& how = outcome.trouble->words;
    return outcome.trouble->kind != Kind::differs ? ""
           : how == "recorded"                    ? "new"
           : how == "erased"                      ? "only-in-backup"
                                                  : "changed";
}

std::string sentenceOf(const BackupDiff& diff, SlotNumber slot, const std::string& state) {
    const auto* const loop = diff.loops.find(slot);
    const auto entry = diff.index.loops.find(slot);
    const auto here = loop == nullptr ? "" : lengthText(loop->samples);
    const auto there = entry == diff.index.loops.end() ? "" : lengthText(entry->second.samples);
    if (state == "new") {
        return "new (" + here + ").";
    }
    if (state == "only-in-backup") {
        return "only in the backup (" + there + ").";
    }
    if (state == "changed") {
        return "changed (" + here + " on the pedal, " + there + " in the backup).";
    }
    const std::string settings = entry->second.describes(*loop) ? "." : "; tempo or channel differs.";
    return (state == "same" ? "the same" : "the same length (" + here + "); its audio was not read") +
           settings;
}

/// "1 changed, 1 only in the backup, 3 the same."
std::string summaryOf(const Outcome& outcome) {
    constexpr std::array<std::pair<const char*, const char*>, 6> states{
        {{"changed", " changed"},
         {"new", " new"},
         {"only-in-backup", " only in the backup"},
         {"same", " the same"},
         {"same-length", " of the same length"},
         {"", " not compared"}}};
    std::string text;
    for (const auto& [state, words] : states) {
        const auto count = std::ranges::count(outcome.slots, state, stateOf);
        text += count == 0 ? "" : (text.empty() ? "" : ", ") + std::to_string(count) + words;
    }
    return text.empty() ? "Nothing was compared." : text + ".";
}

}  // namespace

std::optional<ExitCode> DiffCommand::obstructed() {
    auto found = Generations(options().folder).find(options().snapshot);
    auto index = found ? found->folder.index() : found.error();
    if (!index) {
        return stop(index.error(), backupSentence(index.error()));
    }
    snapshot_ = std::move(*found);
    index_ = std::move(*index);
    return std::nullopt;
}

ExitCode DiffCommand::work(Pedal& pedal) {
    auto status = pedal.status();
    if (!status) {
        return stop(status.error());
    }
    const BackupDiff diff{snapshot_->folder, index_, std::move(status->loops), !options().quick};
    report().tell("snapshot", {{"snapshot", snapshot_->name}, {"complete", true}},
                  "Compared with the backup in " + snapshot_->folder.path().string() + ":");
    ProgressLine progress(context().executor, context().output, !options().json, bytesToRead(diff));
    const auto outcome =
        runDiff(pedal, diff,
                {.begins = [&](SlotNumber slot, Step step) { progress.begin(slot, step); },
                 .moved = [&](SlotNumber /*slot*/, std::uint64_t bytes) { progress.update(bytes); },
                 .slot = [&](const SlotOutcome& loop) { tell(diff, loop); }});
    return conclude("compared", outcome, summaryOf(outcome));
}

void DiffCommand::tell(const BackupDiff& diff, const SlotOutcome& outcome) {
    context().output.endProgress();
    const auto state = stateOf(outcome);
    if (state.empty()) {
        report().failed(outcome.slot, nameOfFailure(outcome.trouble->kind), comparedSentence(outcome));
        return;
    }
    report().tell("compared", {{"slot", outcome.slot.number()}, {"state", state}},
                  loopName(outcome.slot) + ": " + sentenceOf(diff, outcome.slot, state));
}

}  // namespace kzq::ctl
