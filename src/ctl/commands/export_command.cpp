#include "ctl/commands/export_command.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ranges>
#include <system_error>
#include <utility>

#include "audio/wave.h"
#include "ctl/commands/export_plan.h"
#include "ctl/speech/format.h"
#include "ctl/speech/json_output.h"
#include "ctl/speech/progress_line.h"
#include "operations/table.h"

namespace kzq::ctl {

namespace {

constexpr const char* overwriteQuestion =
    "Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. Would you like to "
    "continue?";

bool overwrites(const Exports& exports) {
    return std::ranges::any_of(exports, [](const auto& entry) { return entry.second.occupied; });
}

}  // namespace

ExitCode ExportCommand::work(Pedal& pedal) {
    const auto status = pedal.status();
    if (!status) {
        return stop(status.error());
    }
    const auto& loops = status->loops;
    if (auto trouble = impossibleLength(loops, allSlots())) {
        return conclude("written", {.end = std::move(trouble)}, "");
    }
    const auto slots = slotsForExport(options().files.size(), options().slot, loops);
    if (!slots) {
        return stop(slots.error());
    }
    const auto conversions = std::make_shared<Conversions>(context(), pedal.shared_from_this());
    conversions->start();
    const auto code = stageAndWrite(pedal, *conversions, *slots, loops);
    conversions->end();
    return code;
}

ExitCode ExportCommand::stageAndWrite(Pedal& pedal, Conversions& conversions,
                                      const std::vector<SlotNumber>& slots, const Loops& loops) {
    // Nothing is sent unless all of the files can be.
    for (std::size_t i = 0; i < slots.size(); ++i) {
        const auto file = conversions.await(i);
        if (const auto code = stage(pedal, options().files.at(i), file, slots.at(i), loops)) {
            return *code;
        }
    }
    const auto used = existingAndTeedUpExportSamples(loops, exports_);
    report().tell("space", {{"samples", remainingFrames(used)}}, meterCaption(used));
    if (overwrites(exports_)) {
        if (const auto code = declined(pedal, overwriteQuestion)) {
            return *code;
        }
    }
    const auto outcome = write(pedal, loops);
    return conclude("written", outcome,
                    countSentence(options().verify ? "written and compared" : "written", outcome));
}

/// Takes a file up for that slot; otherwise it has been said why nothing is written.
std::optional<ExitCode> ExportCommand::stage(const Pedal& pedal, const std::filesystem::path& source,
                                             const Result<ConvertedFile>& file, SlotNumber slot,
                                             const Loops& loops) {
    const std::string name = "\"" + source.string() + "\"";
    if (const auto end = pedal.stopped()) {
        return stop(*end);
    }
    if (!file) {
        const auto why = conversionSentence(file.error());
        return stop(file.error(), why + (why.ends_with('.') ? "" : ".") + " Nothing was written.");
    }
    std::error_code error;
    const auto size = std::filesystem::file_size(file->path, error);
    const auto info = error || size < waveHeaderSize ? std::nullopt
                                                     : exportInfoForLoop(slot.number(), loops.contains(slot),
                                                                         file->path, size - waveHeaderSize);
    if (!info) {
        return stop(Trouble{Trouble::Kind::noSound}, name + " contains no audio. Nothing was written.");
    }
    const auto frames = Frames::ofBytes(info->bytes).count;
    if (!fitsCapacity(existingAndTeedUpExportSamplesWithProposedExport(loops, exports_, frames, slot))) {
        return stop(Trouble{Trouble::Kind::noRoom}, name + ": " + tooLargeSentence());
    }
    exports_[slot] = *info;
    nlohmann::json details{{"slot", slot.number()},
                           {"source", source.string()},
                           {"samples", frames},
                           {"occupied", info->occupied}};
    details.update(noteJson(file->note));
    report().tell(
        "staged", details,
        loopName(slot) + ": " + source.string() + ", " + lengthText(frames) + ", " + noteWords(file->note) +
            (info->occupied ? ", overwrites a loop of " + lengthText(loops.find(slot)->samples) + "." : "."));
    return std::nullopt;
}

Outcome ExportCommand::write(Pedal& pedal, const Loops& loops) {
    const ExportOrder order{
        .exports = exports_, .seen = loops, .batches = Batches::each, .verify = options().verify};
    std::uint64_t total = 0;
    for (const auto& [slot, info] : exports_) {
        total += info.bytes * (options().verify ? 2 : 1);
    }
    ProgressLine progress(context().executor, context().output, !options().json, total);
    return runExport(pedal, order,
                     {.begins = [&](SlotNumber slot, Step step) { progress.begin(slot, step); },
                      .moved = [&](SlotNumber /*slot*/, std::uint64_t bytes) { progress.update(bytes); },
                      .slot = [this](const SlotOutcome& loop) { tell(loop); }});
}

void ExportCommand::tell(const SlotOutcome& outcome) {
    context().output.endProgress();
    if (outcome.trouble) {
        failed("written", outcome);
        return;
    }
    report().tell(
        "written", {{"slot", outcome.slot.number()}, {"samples", outcome.frames.count}},
        loopName(outcome.slot) + ": written" +
            (outcome.did == SlotOutcome::Did::compared ? " and compared, sample for sample." : "."));
}

}  // namespace kzq::ctl
