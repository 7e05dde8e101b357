#include "ctl/commands/import_command.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <ranges>
#include <utility>

#include "audio/wave.h"
#include "ctl/commands/folder_check.h"
#include "ctl/speech/format.h"
#include "ctl/speech/progress_line.h"

namespace kzq::ctl {

namespace {

/// Bytes over USB of those that will be read.
std::uint64_t transferred(const ImportOrder& order, const Loops& loops) {
    std::uint64_t total = 0;
    for (const auto& item : order.loops) {
        const auto* const loop = loops.find(item.slot);
        total += loop != nullptr && hasPossibleLength(*loop) ? loop->alignedBytes : 0;
    }
    return total;
}

}  // namespace

std::optional<ExitCode> ImportCommand::obstructed() {
    const auto trouble = folderTrouble(options().folder);
    return trouble ? std::optional(stop(*trouble, folderSentence(*trouble))) : std::nullopt;
}

ExitCode ImportCommand::work(Pedal& pedal) {
    const auto status = pedal.status();
    if (!status) {
        return stop(status.error());
    }
    const auto asked = order(status->loops);
    ProgressLine progress(context().executor, context().output, !options().json,
                          transferred(asked, status->loops));
    std::size_t told = 0;
    const auto outcome =
        runImport(pedal, asked,
                  {.begins =
                       [&](SlotNumber slot, Step /*step*/) {
                           progress.begin(slot, "read",
                                          loopName(slot) + " (" + std::to_string(told + 1) + " of " +
                                              std::to_string(asked.loops.size()) + ")");
                       },
                   .moved = [&](SlotNumber /*slot*/, std::uint64_t bytes) { progress.update(bytes); },
                   .slot =
                       [&](const SlotOutcome& loop) {
                           ++told;
                           tell(loop);
                       }});
    return conclude("saved", outcome,
                    outcome.wanted == 0 ? "The pedal holds no loops." : countSentence("saved", outcome));
}

ImportOrder ImportCommand::order(const Loops& loops) const {
    auto slots = options().all ? slotsOf(loops) : options().slots;
    ImportOrder order{.folder = options().folder,
                      .freeSpace = context().environment.freeSpace,
                      .exact = true,
                      .batches = Batches::each};
    for (const auto slot : slots) {
        const auto* const loop = loops.find(slot);
        order.loops.push_back({slot, loopName(slot), {loop == nullptr ? 0 : loop->samples}});
    }
    // The folder is made only once: one that vanishes later is a lost disk.
    order.write = [made = false](const auto& folder, auto name, auto extension, auto bytes) mutable {
        if (!std::exchange(made, true)) {
            makeFolder(folder);
        }
        return writeNewFile(folder, name, extension, bytes);
    };
    return order;
}

void ImportCommand::tell(const SlotOutcome& outcome) {
    context().output.endProgress();  // it is about this loop; the next one brings its own
    if (outcome.trouble) {
        failed("saved", outcome);
        return;
    }
    const auto size = waveHeaderSize + outcome.frames.bytes();
    report().tell(
        "saved", {{"slot", outcome.slot.number()}, {"file", outcome.file.string()}, {"fileBytes", size}},
        loopName(outcome.slot) + ": saved as " + outcome.file.string() + " (" + sizeText(size) + ").");
}

}  // namespace kzq::ctl
