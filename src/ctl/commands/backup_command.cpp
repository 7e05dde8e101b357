#include "ctl/commands/backup_command.h"

#include <nlohmann/json.hpp>
#include <utility>
#include <vector>

#include "ctl/commands/folder_check.h"
#include "ctl/speech/format.h"
#include "loops/facts.h"
#include "operations/loop_file.h"
#include "operations/sentences.h"

namespace kzq::ctl {
namespace {

/// All loops, those that the index has last.
std::vector<const Loop*> missingFirst(const Loops& loops, const BackupIndex& index) {
    std::vector<const Loop*> order;
    for (const bool kept : {false, true}) {
        for (const auto& [slot, loop] : loops) {
            if (index.loops.contains(slot) == kept) {
                order.push_back(&loop);
            }
        }
    }
    return order;
}

/// What the files of the loops that the index does not have will take.
std::uint64_t sizeToSave(const Loops& loops, const BackupIndex& index) {
    std::uint64_t size = 0;
    for (const auto& [slot, loop] : loops) {
        size += index.loops.contains(slot) || !hasPossibleLength(loop) ? 0 : waveHeaderSize + loop.bytes;
    }
    return size;
}

}  // namespace

BackupCommand::BackupCommand(Context context)
    : WorkerCommand(std::move(context)), folder_(options().folder) {}

std::optional<Explanation> BackupCommand::obstacle() {
    // A finished backup is only compared with, which a folder that cannot be written to allows.
    const auto trouble = folder_.isComplete() ? std::nullopt : folderTrouble(folder_.path());
    return trouble ? std::optional(Explanation{ExitCode::fileError, folderSentence(*trouble)}) : std::nullopt;
}

ExitCode BackupCommand::work(PedalWorker& pedal) {
    const bool finished = folder_.isComplete();
    auto index = finished ? folder_.index() : folder_.partialIndex();
    if (!index && index.error().kind != Trouble::Kind::noBackup) {
        return stop({ExitCode::fileError, backupSentence(index.error())});
    }
    const auto status = pedal.status();
    if (!status) {
        return stop(pedal);
    }
    if (finished && index) {
        return compare(pedal, status->loops, *index);
    }
    return save(pedal, *status, std::move(index).value_or(BackupIndex{}));
}

ExitCode BackupCommand::save(PedalWorker& pedal, const Status& status, BackupIndex index) {
    index.firmware = printable(status.version);
    tally_.wanted = status.loops.size();
    keepWhatIsThere(status.loops, index);
    if (const auto problem = tooLittleSpace(folder_.path(), sizeToSave(status.loops, index),
                                            context().environment.freeSpace)) {
        return stop({ExitCode::fileError, spaceSentence(*problem)});
    }
    makeFolder(folder_.path());
    startProgress(status.loops);
    for (const auto* const loop : missingFirst(status.loops, index)) {
        if (!saveLoop(pedal, *loop, index)) {
            break;
        }
    }
    progress_->end();
    return finish(pedal, status, index);
}

/// What an earlier run saved stays in the index if its file is intact and the pedal still has such a loop.
/// Otherwise the file is kept, as it may be the only copy, but is not part of this backup.
void BackupCommand::keepWhatIsThere(const Loops& loops, BackupIndex& index) {
    for (auto entry = index.loops.begin(); entry != index.loops.end();) {
        const auto* const loop = loops.find(entry->first);
        if (loop != nullptr && entry->second.describes(*loop) && folder_.loop(entry->second)) {
            ++entry;
        } else {
            entry = index.loops.erase(entry);
        }
    }
}

/// False when there is no point in going on. A loop that is already in the index is read as well: a new
/// recording may have the same length and leave the pedal's table as it was.
bool BackupCommand::saveLoop(PedalWorker& pedal, const Loop& loop, BackupIndex& index) {
    const auto slot = *SlotNumber::of(loop.address + 1U);
    const bool possible = hasPossibleLength(loop);
    const auto image = possible ? read(pedal, slot) : std::nullopt;
    if (possible && !image && pedal.ended()) {
        return false;
    }
    if (!image || framesOf(*image) != loop.samples) {
        const auto trouble = possible ? pedal.trouble().kind : Trouble::Kind::tooLarge;
        const auto reason = image ? changedWhileRead() : explainLoop(trouble);
        index.loops.erase(slot);
        failed(tally_, slot, image ? "changed" : troubleName(trouble),
               {reason.code, loopName(slot) + " was not saved: " + reason.sentence});
        return true;
    }
    const auto kept = index.loops.find(slot);
    if (kept != index.loops.end() && kept->second.sha256 == audioDigest(*image)) {
        context().output.endProgress();
        report().tell("kept", {{"slot", slot.number()}, {"file", kept->second.file}},
                      loopName(slot) + ": already saved.");
        return true;
    }
    return storeLoop(loop, *image, index);
}

bool BackupCommand::storeLoop(const Loop& loop, const Bytes& image, BackupIndex& index) {
    const auto slot = *SlotNumber::of(loop.address + 1U);
    BackupEntry entry{
        .file = {}, .samples = loop.samples, .tempo = loop.tempo, .channel = loop.channel, .sha256 = {}};
    index.loops.erase(slot);
    std::string what = loopName(slot);
    const auto stored = folder_.addLoop(slot, image, entry).and_then([&] {
        index.loops.insert_or_assign(slot, entry);
        what = "The list of loops";
        return folder_.writePartialIndex(index);
    });
    if (!stored) {
        index.loops.erase(slot);
        failed(tally_, slot, "file",
               {ExitCode::fileError, notSavedSentence(what, folder_.path(), stored.error())});
        tally_.stopped = true;
        return false;
    }
    context().output.endProgress();
    report().tell("saved", {{"slot", slot.number()}, {"file", entry.file}, {"samples", entry.samples}},
                  loopName(slot) + ": saved as " + (folder_.path() / entry.file).string() + " (" +
                      sizeText(image.size()) + ").");
    return true;
}

/// Writes the index, but only of a complete backup whose loops were on the pedal at the same time.
ExitCode BackupCommand::finish(PedalWorker& pedal, const Status& status, const BackupIndex& index) {
    tally_.done = index.loops.size();
    const bool whole = tally_.done == tally_.wanted;
    if (whole) {
        auto loops = status.loops;
        if (const auto problem = changedSince(pedal, loops, allSlots()); problem && !pedal.ended()) {
            return stop({problem->code,
                         "The loops on the pedal changed during the backup. Run the same command again."});
        }
    }
    if (whole && !pedal.ended()) {
        if (const auto written = folder_.finish(index); !written) {
            return stop(
                {ExitCode::fileError, notSavedSentence("The index", folder_.path(), written.error())});
        }
        return conclude(pedal, tally_,
                        loopsText(tally_.wanted) + " backed up in " + folder_.path().string() + ".");
    }
    return conclude(pedal, tally_,
                    std::to_string(tally_.done) + " of " + loopsText(tally_.wanted) +
                        " saved. Run the same command again to continue.");
}

ExitCode BackupCommand::compare(PedalWorker& pedal, const Loops& loops, const BackupIndex& index) {
    Loops alike;
    for (const auto& [slot, loop] : loops) {
        const auto entry = index.loops.find(slot);
        if (entry != index.loops.end() && entry->second.samples == loop.samples) {
            alike.put(slot, loop);
        }
    }
    startProgress(alike);
    for (const auto slot : allSlots()) {
        if (pedal.ended()) {
            break;
        }
        const auto entry = index.loops.find(slot);
        compareLoop(pedal, slot, loops.find(slot), entry == index.loops.end() ? nullptr : &entry->second);
    }
    progress_->end();
    return conclude(pedal, tally_,
                    pedal.ended() || tally_.failures.empty()
                        ? std::to_string(tally_.done) + " of " + loopsText(tally_.wanted) +
                              " compared: same as in the backup."
                        : "The pedal and the backup in " + folder_.path().string() +
                              " differ. Nothing was written; choose another folder for a new backup.");
}

void BackupCommand::compareLoop(PedalWorker& pedal, SlotNumber slot, const Loop* loop,
                                const BackupEntry* entry) {
    if (loop == nullptr && entry == nullptr) {
        return;
    }
    ++tally_.wanted;
    if (entry == nullptr) {
        differs(slot, "is not in the backup.");
    } else if (!folder_.loop(*entry)) {
        differs(slot, "is damaged in the backup: " + (folder_.path() / entry->file).string() + ".");
    } else if (loop == nullptr) {
        differs(slot, "is no longer on the pedal.");
    } else if (entry->samples != loop->samples) {
        differs(slot, "has changed since the backup.");
    } else {
        compareAudio(pedal, slot, *loop, *entry);
    }
}

/// A different tempo or channel is mentioned but does not count, as no restore can bring it back.
void BackupCommand::compareAudio(PedalWorker& pedal, SlotNumber slot, const Loop& loop,
                                 const BackupEntry& entry) {
    const auto image = read(pedal, slot);
    if (!image && pedal.ended()) {
        return;
    }
    if (!image) {
        differs(slot, "could not be read: " + explainLoop(pedal.trouble().kind).sentence);
    } else if (audioDigest(*image) != entry.sha256) {
        differs(slot, "has changed since the backup.");
    } else {
        ++tally_.done;
        context().output.endProgress();
        report().tell("unchanged", {{"slot", slot.number()}},
                      loopName(slot) + (entry.describes(loop) ? ": unchanged."
                                                              : ": the audio is unchanged; tempo or channel "
                                                                "differs."));
    }
}

void BackupCommand::differs(SlotNumber slot, const std::string& how) {
    failed(tally_, slot, "changed", {ExitCode::someFailed, loopName(slot) + " " + how});
}

void BackupCommand::startProgress(const Loops& loops) {
    std::uint64_t total = 0;
    for (const auto& [slot, loop] : loops) {
        total += loop.alignedBytes;
    }
    progress_ = std::make_shared<ProgressLine>(context().executor, context().output, !options().json, total);
}

std::optional<Bytes> BackupCommand::read(PedalWorker& pedal, SlotNumber slot) {
    progress_->begin(slot, "read", loopName(slot));
    return pedal.importLoop(slot, [progress = progress_](std::uint64_t bytes) { progress->update(bytes); });
}

}  // namespace kzq::ctl
