#include "ctl/commands/backup_command.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "audio/wave.h"
#include "ctl/commands/folder_check.h"
#include "ctl/speech/progress_line.h"
#include "loops/facts.h"

namespace kzq::ctl {

BackupCommand::BackupCommand(Context context) : PedalCommand(std::move(context)), folder_(options().folder) {}

std::optional<ExitCode> BackupCommand::obstructed() {
    // A finished backup is only compared with, which a folder that cannot be written to allows.
    const auto trouble = folder_.isComplete() ? std::nullopt : folderTrouble(folder_.path());
    return trouble ? std::optional(stop(*trouble, folderSentence(*trouble))) : std::nullopt;
}

ExitCode BackupCommand::work(Pedal& pedal) {
    auto planned = planBackup(pedal, folder_);
    if (!planned) {
        return stop(planned.error(), backupSentence(planned.error()));
    }
    auto& plan = *planned;
    plan.freeSpace = context().environment.freeSpace;
    ProgressLine progress(context().executor, context().output, !options().json, bytesToRead(plan));
    const auto outcome =
        runBackup(pedal, plan,
                  {.begins = [&](SlotNumber slot, Step step) { progress.begin(slot, step); },
                   .moved = [&](SlotNumber /*slot*/, std::uint64_t bytes) { progress.update(bytes); },
                   .slot =
                       [&](const SlotOutcome& loop) {
                           context().output.endProgress();
                           plan.finished ? tellCompared(plan, loop) : tell(loop);
                       }});
    return plan.finished ? concludeCompared(outcome) : concludeSaved(outcome);
}

void BackupCommand::tell(const SlotOutcome& outcome) {
    if (outcome.trouble) {
        failed("saved", outcome);
        return;
    }
    const auto name = loopName(outcome.slot);
    nlohmann::json details{{"slot", outcome.slot.number()}, {"file", outcome.file.filename().string()}};
    if (outcome.did == SlotOutcome::Did::kept) {
        report().tell("kept", std::move(details), name + ": already saved.");
        return;
    }
    details["samples"] = outcome.frames.count;
    report().tell("saved", std::move(details),
                  name + ": saved as " + outcome.file.string() + " (" +
                      sizeText(waveHeaderSize + outcome.frames.bytes()) + ").");
}

void BackupCommand::tellCompared(const BackupPlan& plan, const SlotOutcome& outcome) {
    if (outcome.trouble) {
        report().failed(outcome.slot, "changed", comparedSentence(outcome));
        return;
    }
    const bool same = plan.index.loops.at(outcome.slot).describes(*plan.status.loops.find(outcome.slot));
    report().tell("unchanged", {{"slot", outcome.slot.number()}},
                  loopName(outcome.slot) +
                      (same ? ": unchanged." : ": the audio is unchanged; tempo or channel differs."));
}

ExitCode BackupCommand::concludeSaved(const Outcome& outcome) {
    const auto kind = outcome.end && !outcome.endIsTold() ? outcome.end->kind : Trouble::Kind::cancelled;
    if (kind == Trouble::Kind::changed || kind == Trouble::Kind::file) {
        return stop(*outcome.end, backupSentence(*outcome.end));
    }
    return conclude("saved", outcome,
                    outcome.whole()
                        ? loopsText(outcome.wanted) + " backed up in " + folder_.path().string() + "."
                        : std::to_string(outcome.done()) + " of " + loopsText(outcome.wanted) +
                              " saved. Run the same command again to continue.");
}

ExitCode BackupCommand::concludeCompared(const Outcome& outcome) {
    return conclude("compared", outcome,
                    outcome.end || outcome.whole()
                        ? std::to_string(outcome.done()) + " of " + loopsText(outcome.wanted) +
                              " compared: same as in the backup."
                        : "The pedal and the backup in " + folder_.path().string() +
                              " differ. Nothing was written; choose another folder for a new backup.");
}

}  // namespace kzq::ctl
