#include "ctl/commands/erase_command.h"

#include <nlohmann/json.hpp>

#include "ctl/speech/format.h"
#include "loops/facts.h"

namespace kzq::ctl {
namespace {

/// The work ended before the pedal could be asked what it still holds. A pedal that is there keeps its word;
/// but a request to one that has left reads like a consent.
void countUnseen(const PedalWorker& pedal, std::optional<std::uint8_t> agreed, Tally& tally) {
    const auto end = pedal.ended();
    if (agreed && end && end->code == ExitCode::cancelled) {
        tally.done += *agreed;
    } else if (pedal.begun() && agreed != 0) {
        tally.doubt = "Some of the loops may have been erased.";
    }
}

}  // namespace

ExitCode EraseCommand::work(PedalWorker& pedal) {
    const auto status = pedal.status();
    if (!status) {
        return stop(pedal);
    }
    const auto slots = occupied(status->loops);
    Tally tally;
    tally.wanted = slots.size();
    if (slots.empty()) {
        return conclude(pedal, tally, "There is nothing to erase.");
    }
    if (const auto problem = impossibleLength(status->loops, slots)) {
        return stop(*problem);
    }
    for (const auto slot : slots) {
        report().tell(
            "plan", {{"slot", slot.number()}, {"change", "erase"}},
            loopName(slot) + ": will be erased (" + lengthText(status->loops.find(slot)->samples) + ").");
    }
    if (const auto code =
            declined(pedal, "Erased loop audio cannot be restored. Would you like to continue?")) {
        return *code;
    }
    auto loops = status->loops;
    if (const auto problem = changedSince(pedal, loops, slots)) {
        return stop(*problem);
    }
    eraseAndLook(pedal, report(), slots, tally);
    const auto all = loopsText(tally.wanted);
    const auto done = tally.done == tally.wanted ? all : std::to_string(tally.done) + " of " + all;
    return conclude(pedal, tally, tally.unsure() ? "" : done + " erased.");
}

/// Those of the wanted slots that hold a loop.
std::vector<SlotNumber> EraseCommand::occupied(const Loops& loops) {
    std::vector<SlotNumber> slots;
    if (options().all) {
        for (const auto& [slot, loop] : loops) {
            slots.push_back(slot);
        }
        return slots;
    }
    for (const auto slot : options().slots) {
        if (loops.contains(slot)) {
            slots.push_back(slot);
        } else {
            report().tell("empty", {{"slot", slot.number()}},
                          "Slot " + std::to_string(slot.number()) + " is already empty.");
        }
    }
    return slots;
}

std::optional<Loops> eraseAndLook(PedalWorker& pedal, Report& report, const std::vector<SlotNumber>& slots,
                                  Tally& tally) {
    const auto count = pedal.eraseLoops(slots);
    const auto status = pedal.status();
    if (!status) {
        countUnseen(pedal, count, tally);
        return std::nullopt;
    }
    for (const auto slot : slots) {
        const std::string name = loopName(slot);
        if (!status->loops.contains(slot)) {
            ++tally.done;
            report.tell("erased", {{"slot", slot.number()}}, name + ": erased.");
        } else {
            tally.failures.push_back(
                {ExitCode::pedalRefused, name + " was not erased: it is still on the pedal."});
            report.failed(slot, troubleName(Trouble::Kind::refused), tally.failures.back().sentence);
        }
    }
    return status->loops;
}

}  // namespace kzq::ctl
