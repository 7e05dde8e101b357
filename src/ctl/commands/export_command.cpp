#include "ctl/commands/export_command.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <system_error>

#include "ctl/commands/conversion_progress.h"
#include "ctl/commands/loop_writer.h"
#include "ctl/speech/format.h"
#include "loops/facts.h"
#include "operations/loop_file.h"
#include "operations/sentences.h"

namespace kzq::ctl {
ExitCode ExportCommand::work(PedalWorker& pedal) {
    WorkingCopies copies;
    copies_ = &copies;
    const auto status = pedal.status();
    if (!status) {
        return stop(pedal);
    }
    if (const auto problem = impossibleLength(status->loops, allSlots())) {
        return stop(*problem);
    }
    const auto slots = slotsForExport(options().files.size(), options().slot, status->loops);
    if (const auto* const problem = std::get_if<Explanation>(&slots)) {
        return stop(*problem);
    }
    if (const auto problem = stage(pedal, status->loops, std::get<0>(slots))) {
        return stop(*problem);
    }
    showSpace(status->loops);
    if (overwrites()) {
        if (const auto code = declined(
                pedal,
                "Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. "
                "Would you like to continue?")) {
            return *code;
        }
    }
    auto loops = status->loops;
    if (const auto problem = obstacleNow(pedal, loops, std::get<0>(slots), nothingDone)) {
        return stop(*problem);
    }
    send(pedal, std::move(loops));
    const auto all = loopsText(tally_.wanted);
    const std::string done = tally_.done == tally_.wanted ? all : std::to_string(tally_.done) + " of " + all;
    const std::string summary = done + (options().verify ? " written and compared." : " written.");
    return conclude(pedal, tally_, tally_.unsure() ? "" : summary);
}

/// Nothing is sent unless all of the files can be.
std::optional<Explanation> ExportCommand::stage(PedalWorker& pedal, const Loops& loops,
                                                const std::vector<SlotNumber>& slots) {
    for (std::size_t i = 0; i < slots.size(); ++i) {
        if (auto problem = stageFile(pedal, options().files.at(i), slots[i], loops)) {
            return problem;
        }
    }
    tally_.wanted = exports_.size();
    return std::nullopt;
}

std::optional<Explanation> ExportCommand::stageFile(PedalWorker& pedal, const std::filesystem::path& source,
                                                    SlotNumber slot, const Loops& loops) {
    const std::string name = "\"" + source.string() + "\"";
    const auto file = convert(pedal, source);
    if (auto end = pedal.ended()) {
        return end;
    }
    std::error_code error;
    const auto size = file ? std::filesystem::file_size(file->path, error) : 0;
    const auto info = error || size < waveHeaderSize ? std::nullopt
                                                     : exportInfoForLoop(slot.number(), loops.contains(slot),
                                                                         file->path, size - waveHeaderSize);
    if (!info) {
        const std::string why = file ? name + " contains no audio." : conversionSentence(file.error());
        const char* const next = why.ends_with('.') ? " Nothing was written." : ". Nothing was written.";
        return Explanation{ExitCode::fileError, why + next};
    }
    const auto frames = info->bytes / frameBytes;
    if (!fitsCapacity(existingAndTeedUpExportSamplesWithProposedExport(loops, exports_, frames, slot))) {
        return Explanation{ExitCode::pedalRefused, name + ": " + std::string(tooLargeSentence)};
    }
    exports_.insert_or_assign(slot, *info);
    report().tell(
        "staged",
        {{"slot", slot.number()},
         {"source", source.string()},
         {"samples", frames},
         {"occupied", info->occupied}},
        loopName(slot) + ": " + source.string() + ", " + lengthText(frames) +
            (info->occupied ? ", overwrites a loop of " + lengthText(loops.find(slot)->samples) + "." : "."));
    return std::nullopt;
}

Result<ConvertedFile> ExportCommand::convert(PedalWorker& pedal, const std::filesystem::path& source) {
    const auto& environment = context().environment;
    const auto folder = environment.workingFolder();
    if (!folder) {
        return Trouble{Trouble::Kind::noTemporaryFolder, source.string(), 0, "its working copy"};
    }
    auto file = environment.convert(
        {.source = source,
         .output = *folder,
         .progress = conversionProgress(context(), "Converting " + source.filename().string(), source),
         .cancelled = &pedal.endedFlag(),
         .sync = false});
    context().output.endProgress();
    if (file) {
        copies_->add(file->path);
    }
    return file;
}

void ExportCommand::showSpace(const Loops& loops) {
    const auto used = existingAndTeedUpExportSamples(loops, exports_);
    report().tell("space", {{"samples", remainingFrames(used)}}, meterCaption(used));
}

bool ExportCommand::overwrites() const {
    return std::any_of(exports_.begin(), exports_.end(),
                       [](const auto& entry) { return entry.second.occupied; });
}

/// What has come up on the pedal since the user was asked: asked directly before a loop is written.
std::optional<Explanation> ExportCommand::obstacleNow(PedalWorker& pedal, Loops& loops,
                                                      const std::vector<SlotNumber>& slots,
                                                      const char* consequence) {
    if (auto problem = changedSince(pedal, loops, slots, consequence)) {
        return problem;
    }
    if (fitsCapacity(existingAndTeedUpExportSamples(loops, exports_))) {
        return std::nullopt;
    }
    return Explanation{
        ExitCode::pedalRefused,
        std::string("A loop was recorded on the pedal in the meantime, which leaves too little "
                    "space, so ") +
            consequence + ". Erase loops, or choose shorter files."};
}

void ExportCommand::send(PedalWorker& pedal, Loops loops) {
    std::uint64_t total = 0;
    for (const auto& [slot, info] : exports_) {
        total += info.bytes * (options().verify ? 2 : 1);
    }
    const auto progress =
        std::make_shared<ProgressLine>(context().executor, context().output, !options().json, total);
    LoopWriter writer(pedal, progress);
    const auto order = inOrderOfGrowth(exports_, loops);
    auto waiting = order;
    for (const auto slot : order) {
        const auto& info = exports_.at(slot);
        // Between two loops minutes may pass in which the pedal is free.
        if (waiting.size() < order.size()) {
            if (const auto problem = obstacleNow(pedal, loops, waiting, nothingMore)) {
                pedal.end(*problem);
                return;
            }
        }
        std::erase(waiting, slot);
        auto outcome = writer.write(slot, info);
        if (outcome.sentence.empty()) {
            outcome = options().verify
                          ? writer.readBack(
                                slot, [&info](ByteView image) { return holdsSameAudio(info.source, image); })
                          : writer.confirm(slot, info);
        }
        if (!outcome.sentence.empty() && pedal.ended()) {
            tally_.doubt = outcome.doubt;
            return;
        }
        if (outcome.sentence.empty()) {
            written(slot, info);
        } else {
            failed(tally_, slot, outcome.reason, {outcome.code, outcome.sentence});
        }
    }
    progress->end();
}

void ExportCommand::written(SlotNumber slot, const ExportInfo& info) {
    ++tally_.done;
    context().output.endProgress();
    report().tell(
        "written", {{"slot", slot.number()}, {"samples", info.bytes / frameBytes}},
        loopName(slot) + ": written" + (options().verify ? " and compared, sample for sample." : "."));
}

}  // namespace kzq::ctl
