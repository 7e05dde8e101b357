#include "ctl/commands/backup_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <system_error>
#include <utility>

#include "audio/wave.h"
#include "ctl/commands/backup_list.h"
#include "ctl/commands/folder_check.h"
#include "ctl/speech/progress_line.h"
#include "loops/facts.h"

namespace kzq::ctl {

BackupCommand::BackupCommand(Context context)
    : PedalCommand(std::move(context)), generations_(options().folder) {}

std::optional<ExitCode> BackupCommand::obstructed() {
    if (options().list) {
        return std::nullopt;
    }
    const auto& folder = generations_.path();
    std::error_code error;
    const auto whole = std::filesystem::absolute(folder, error).lexically_normal();
    const auto last = whole.has_filename() ? whole : whole.parent_path();
    if (Generations::isDated(last.filename().string()) && BackupFolder(folder).isComplete()) {
        return stop(ExitCode::usage,
                    "\"" + folder.string() + "\" is one backup of several. Give the folder around it.");
    }
    const auto trouble = folderTrouble(folder);
    return trouble ? std::optional(stop(*trouble, folderSentence(*trouble))) : std::nullopt;
}

bool BackupCommand::withoutPedal() {
    if (options().list) {
        context().finish(listBackups(generations_, report()));
    }
    return options().list;
}

ExitCode BackupCommand::work(Pedal& pedal) {
    auto status = pedal.status();
    if (!status) {
        return stop(status.error());
    }
    const auto& environment = context().environment;
    const BackupOrder order{generations_, std::move(*status), environment.stamp, environment.freeSpace};
    ProgressLine progress(context().executor, context().output, !options().json,
                          bytesToRead(order.status.loops));
    return conclude(
        runBackup(pedal, order,
                  {.begins = [&](SlotNumber slot, Step step) { progress.begin(slot, step); },
                   .moved = [&](SlotNumber /*slot*/, std::uint64_t bytes) { progress.update(bytes); },
                   .slot = [&](const SlotOutcome& loop) { tell(loop); }}));
}

void BackupCommand::tell(const SlotOutcome& outcome) {
    context().output.endProgress();
    if (outcome.trouble) {
        failed("saved", outcome);
        return;
    }
    const bool kept = outcome.did == SlotOutcome::Did::kept;
    report().tell(kept ? "kept" : "saved",
                  {{"slot", outcome.slot.number()},
                   {"file", outcome.file.filename().string()},
                   {"samples", outcome.frames.count}},
                  loopName(outcome.slot) +
                      (kept ? ": already saved."
                            : ": saved (" + sizeText(waveHeaderSize + outcome.frames.bytes()) + ")."));
}

ExitCode BackupCommand::conclude(const BackupEnd& end) {
    const auto& outcome = end.outcome;
    const auto kind = outcome.end && !outcome.endIsTold() ? outcome.end->kind : Trouble::Kind::cancelled;
    if (kind == Trouble::Kind::changed || kind == Trouble::Kind::file || kind == Trouble::Kind::folder) {
        return stop(*outcome.end, backupSentence(*outcome.end));
    }
    // Loops that an earlier run saved are still in its folder.
    const bool several = outcome.unseen > 0;
    const std::string place = several        ? " in " + generations_.path().string()
                              : end.snapshot ? " in " + end.snapshot->folder.path().string()
                                             : "";
    if (end.snapshot && outcome.whole()) {
        context().environment.backedUp();
        report().tell("snapshot", {{"snapshot", end.snapshot->name}, {"complete", true}}, {});
    }
    const auto kept = std::ranges::count(outcome.slots, SlotOutcome::Did::kept, &SlotOutcome::did);
    return PedalCommand::conclude("saved", outcome,
                                  outcome.whole()
                                      ? loopsText(outcome.wanted) + " backed up" + place + "; " +
                                            std::to_string(kept) + " of them had been saved before."
                                      : std::to_string(outcome.done()) + " of " + loopsText(outcome.wanted) +
                                            " saved" + place + ". Run the same command again to continue.");
}

}  // namespace kzq::ctl
