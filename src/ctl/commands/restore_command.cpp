#include "ctl/commands/restore_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/commands/loop_writer.h"
#include "ctl/speech/format.h"
#include "loops/facts.h"
#include "operations/export.h"
#include "operations/loop_file.h"
#include "operations/sentences.h"

namespace kzq::ctl {
RestoreCommand::RestoreCommand(Context context)
    : WorkerCommand(std::move(context)), folder_(options().folder) {}

std::optional<Explanation> RestoreCommand::obstacle() {
    auto index = folder_.index();
    if (!index) {
        auto trouble = index.error();
        if (trouble.kind == Trouble::Kind::noBackup && folder_.partialIndex()) {
            trouble.kind = Trouble::Kind::backupIncomplete;
        }
        return Explanation{ExitCode::fileError, backupSentence(trouble)};
    }
    index_ = std::move(*index);
    std::uint64_t frames = 0;
    for (const auto& [slot, entry] : index_.loops) {
        frames += entry.samples;
    }
    if (frames > capacityFrames) {
        return Explanation{ExitCode::fileError,
                           backupSentence({Trouble::Kind::backupTooLong, folder_.path().string()})};
    }
    return std::nullopt;
}

ExitCode RestoreCommand::work(PedalWorker& pedal) {
    if (const auto problem = verifyFiles(pedal)) {
        return stop(*problem);
    }
    const auto status = pedal.status();
    if (!status) {
        return stop(pedal);
    }
    if (const auto problem = impossibleLength(status->loops, allSlots())) {
        return stop(*problem);
    }
    if (const auto problem = findChanges(pedal, status->loops)) {
        return stop(*problem);
    }
    tally_.wanted = erased_.size() + writes_.size();
    if (tally_.wanted == 0) {
        return conclude(pedal, tally_, "There is nothing to change.");
    }
    if (const auto code = declined(pedal, question())) {
        return *code;
    }
    // All of them: what was compared and stays must still be what was compared.
    auto loops = status->loops;
    if (const auto problem = changedSince(pedal, loops, allSlots())) {
        return stop(*problem);
    }
    change(pedal, std::move(loops));
    return conclude(pedal, tally_, summary(pedal));
}

std::optional<Explanation> RestoreCommand::verifyFiles(const PedalWorker& pedal) const {
    for (const auto& [slot, entry] : index_.loops) {
        if (!folder_.loop(entry)) {
            return Explanation{ExitCode::fileError, "The backup is damaged: \"" +
                                                        (folder_.path() / entry.file).string() +
                                                        "\" is missing or has been changed. Nothing was "
                                                        "changed."};
        }
        if (auto end = pedal.ended()) {
            return end;
        }
    }
    return std::nullopt;
}

std::optional<Explanation> RestoreCommand::findChanges(PedalWorker& pedal, const Loops& loops) {
    std::uint64_t total = 0;
    for (const auto& [slot, loop] : loops) {
        const auto entry = index_.loops.find(slot);
        total += entry != index_.loops.end() && entry->second.samples == loop.samples ? loop.alignedBytes : 0;
    }
    progress_ = std::make_shared<ProgressLine>(context().executor, context().output, !options().json, total);
    for (const auto slot : allSlots()) {
        const auto* const loop = loops.find(slot);
        if (!index_.loops.contains(slot)) {
            if (loop != nullptr) {
                planErase(slot, *loop);
            }
            continue;
        }
        const auto same = loop != nullptr ? isSame(pedal, slot, *loop) : std::optional(false);
        if (!same) {
            return pedal.ended().value_or(Explanation{explainLoop(pedal.trouble().kind).code,
                                                      loopName(slot) +
                                                          " could not be compared, so nothing was changed: " +
                                                          explainLoop(pedal.trouble().kind).sentence});
        }
        if (!*same) {
            planWrite(slot, loop);
            continue;
        }
        ++same_;
        context().output.endProgress();
        report().tell("plan", {{"slot", slot.number()}, {"change", "same"}},
                      loopName(slot) + ": already the same.");
    }
    return std::nullopt;
}

/// Whether the pedal's loop has the audio of the backup; nothing when it cannot be read.
std::optional<bool> RestoreCommand::isSame(PedalWorker& pedal, SlotNumber slot, const Loop& loop) {
    const auto& entry = index_.loops.at(slot);
    if (entry.samples != loop.samples) {
        return false;
    }
    progress_->begin(slot, "compare", loopName(slot) + ", comparing");
    const auto image =
        pedal.importLoop(slot, [progress = progress_](std::uint64_t bytes) { progress->update(bytes); });
    if (!image) {
        return std::nullopt;
    }
    return audioDigest(*image) == entry.sha256;
}

void RestoreCommand::planWrite(SlotNumber slot, const Loop* old) {
    const auto& entry = index_.loops.at(slot);
    writes_.insert_or_assign(slot, ExportInfo{folder_.path() / entry.file, slot.number(), old != nullptr,
                                              entry.samples * frameBytes});
    context().output.endProgress();
    if (old == nullptr) {
        report().tell("plan", {{"slot", slot.number()}, {"change", "write"}},
                      loopName(slot) + ": will be written (" + lengthText(entry.samples) + ").");
        return;
    }
    lost_.push_back(slot);
    report().tell("plan", {{"slot", slot.number()}, {"change", "overwrite"}},
                  loopName(slot) + ": will be overwritten (" + lengthText(entry.samples) + " instead of " +
                      lengthText(old->samples) + ").");
}

void RestoreCommand::planErase(SlotNumber slot, const Loop& old) {
    erased_.push_back(slot);
    lost_.push_back(slot);
    context().output.endProgress();
    report().tell("plan", {{"slot", slot.number()}, {"change", "erase"}},
                  loopName(slot) + ": will be erased (" + lengthText(old.samples) +
                      "); the slot is empty in the backup.");
}

std::string RestoreCommand::question() const {
    if (lost_.empty()) {
        return loopsText(writes_.size()) + " will be written. Would you like to continue?";
    }
    return "The current audio of " + loopNames(lost_) +
           " on the 7306 will be erased. Erased audio cannot be restored. Would you like to continue?";
}

/// Erases first, so that there is room for what is written.
void RestoreCommand::change(PedalWorker& pedal, Loops loops) {
    auto untouched = allSlots();
    if (!erased_.empty()) {
        auto left = eraseAndLook(pedal, report(), erased_, tally_);
        if (!left) {
            return;
        }
        std::erase_if(untouched,
                      [this](SlotNumber slot) { return std::ranges::find(erased_, slot) != erased_.end(); });
        if (const auto problem = changedBetween(loops, *left, untouched, nothingMore)) {
            pedal.end(*problem);
            return;
        }
        loops = std::move(*left);
    }
    if (!writes_.empty()) {
        write(pedal, std::move(loops), std::move(untouched));
    }
}

/// `untouched`: the slots that are still as they were when the user was asked.
void RestoreCommand::write(PedalWorker& pedal, Loops loops, std::vector<SlotNumber> untouched) {
    std::uint64_t total = 0;
    for (const auto& [slot, info] : writes_) {
        total += 2 * info.bytes;
    }
    progress_ = std::make_shared<ProgressLine>(context().executor, context().output, !options().json, total);
    LoopWriter writer(pedal, progress_);
    const auto order = inOrderOfGrowth(writes_, loops);
    for (const auto slot : order) {
        const auto& info = writes_.at(slot);
        // Between two loops minutes pass in which the pedal is free.
        if (slot != order.front()) {
            if (const auto problem = changedSince(pedal, loops, untouched, nothingMore)) {
                pedal.end(*problem);
                return;
            }
        }
        std::erase(untouched, slot);
        auto outcome = writer.write(slot, info);
        if (outcome.sentence.empty()) {
            outcome = writer.readBack(slot, [&digest = index_.loops.at(slot).sha256](ByteView image) {
                return audioDigest(image) == digest;
            });
        }
        if (!outcome.sentence.empty() && pedal.ended()) {
            tally_.doubt = outcome.doubt;
            return;
        }
        context().output.endProgress();
        if (outcome.sentence.empty()) {
            ++tally_.done;
            report().tell("written", {{"slot", slot.number()}, {"samples", info.bytes / frameBytes}},
                          loopName(slot) + ": written and compared.");
        } else {
            failed(tally_, slot, outcome.reason, {outcome.code, outcome.sentence});
        }
    }
}

std::string RestoreCommand::summary(const PedalWorker& pedal) const {
    if (tally_.done == tally_.wanted && !pedal.ended()) {
        return loopsText(writes_.size()) + " written, " + std::to_string(erased_.size()) + " erased, " +
               std::to_string(same_) + " unchanged.";
    }
    const std::string counts =
        std::to_string(tally_.done) + " of " + std::to_string(tally_.wanted) + " changes made. ";
    return (tally_.unsure() ? "" : counts) + "Run the same command again to continue.";
}

}  // namespace kzq::ctl
