#include "ctl/commands/import_command.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "ctl/commands/folder_check.h"
#include "ctl/speech/format.h"
#include "loops/facts.h"
#include "operations/loop_file.h"
#include "operations/sentences.h"
#include "platform/new_file.h"

namespace kzq::ctl {
std::optional<Explanation> ImportCommand::obstacle() {
    return folderObstacle(options().folder);
}

ExitCode ImportCommand::work(PedalWorker& pedal) {
    const auto status = pedal.status();
    if (!status) {
        return stop(pedal);
    }
    const auto slots = wanted(status->loops);
    tally_.wanted = slots.size();
    std::uint64_t total = 0;
    std::uint64_t size = 0;
    for (const auto slot : slots) {
        const auto* const loop = status->loops.find(slot);
        if (loop != nullptr && hasPossibleLength(*loop)) {
            total += loop->alignedBytes;
            size += waveHeaderSize + loop->bytes;
        }
    }
    if (const auto problem = tooLittleSpace(options().folder, size, context().environment.freeSpace)) {
        return stop({ExitCode::fileError, spaceSentence(*problem)});
    }
    progress_ = std::make_shared<ProgressLine>(context().executor, context().output, !options().json, total);
    for (std::size_t i = 0; i < slots.size() && !pedal.ended() && !tally_.stopped; ++i) {
        progress_->begin(
            slots[i], "read",
            loopName(slots[i]) + " (" + std::to_string(i + 1) + " of " + std::to_string(slots.size()) + ")");
        save(pedal, slots[i], status->loops.find(slots[i]));
    }
    return conclude(pedal, tally_, summary(pedal));
}

std::vector<SlotNumber> ImportCommand::wanted(const Loops& loops) const {
    auto slots = options().slots;
    if (options().all) {
        for (const auto& [slot, loop] : loops) {
            slots.push_back(slot);
        }
    }
    return slots;
}

/// `loop`: as the table had it at the start. The link reads a table of its own, whose length may be another.
void ImportCommand::save(PedalWorker& pedal, SlotNumber slot, const Loop* loop) {
    if (loop != nullptr && !hasPossibleLength(*loop)) {
        notSaved(slot, troubleName(Trouble::Kind::tooLarge), explainLoop(Trouble::Kind::tooLarge));
        return;
    }
    const auto image =
        pedal.importLoop(slot, [progress = progress_](std::uint64_t bytes) { progress->update(bytes); });
    context().output.endProgress();  // it is about this loop; the next one brings its own
    if (image && loop != nullptr && framesOf(*image) == loop->samples) {
        write(slot, *image);
    } else if (image) {
        notSaved(slot, "changed", changedWhileRead());
    } else if (!pedal.ended()) {
        notSaved(slot, troubleName(pedal.trouble().kind), explainLoop(pedal.trouble().kind));
    }
}

void ImportCommand::notSaved(SlotNumber slot, std::string_view reason, const Explanation& why) {
    failed(tally_, slot, reason, {why.code, loopName(slot) + " was not saved: " + why.sentence});
}

/// The first file that cannot be written ends the import, as the next one would fail as well.
void ImportCommand::write(SlotNumber slot, const Bytes& image) {
    const auto& folder = options().folder;
    if (!std::exchange(folderMade_, true)) {  // only once: a folder that vanishes later is a lost disk
        makeFolder(folder);
    }
    const auto file = writeNewFile(folder, loopName(slot), ".wav", image);
    if (!file) {
        failed(tally_, slot, "file",
               {ExitCode::fileError, notSavedSentence(loopName(slot), folder, file.error())});
        tally_.stopped = true;
        return;
    }
    ++tally_.done;
    report().tell("saved", {{"slot", slot.number()}, {"file", file->string()}, {"fileBytes", image.size()}},
                  loopName(slot) + ": saved as " + file->string() + " (" + sizeText(image.size()) + ").");
}

std::string ImportCommand::summary(const PedalWorker& pedal) const {
    if (tally_.wanted == 0) {
        return pedal.ended() ? "" : "The pedal holds no loops.";
    }
    return (tally_.done == tally_.wanted ? "" : std::to_string(tally_.done) + " of ") +
           loopsText(tally_.wanted) + " saved.";
}

}  // namespace kzq::ctl
