#include "ctl/commands/erase_command.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>
#include <ranges>

#include "ctl/speech/format.h"
#include "operations/erase.h"
#include "operations/table.h"

namespace kzq::ctl {

ExitCode EraseCommand::work(Pedal& pedal) {
    const auto status = pedal.status();
    if (!status) {
        return stop(status.error());
    }
    const auto slots = occupied(status->loops);
    if (slots.empty()) {
        return conclude("erased", {}, "There is nothing to erase.");
    }
    if (auto trouble = impossibleLength(status->loops, slots)) {
        return conclude("erased", {.end = std::move(trouble)}, "");
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
    const auto outcome = runErase(pedal, {.slots = slots, .seen = status->loops},
                                  {.slot = [this](const SlotOutcome& loop) { tell(loop); }});
    return conclude("erased", outcome, countSentence("erased", outcome));
}

/// Those of the wanted slots that hold a loop.
std::vector<SlotNumber> EraseCommand::occupied(const Loops& loops) {
    if (options().all) {
        return slotsOf(loops);
    }
    std::vector<SlotNumber> slots;
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

void EraseCommand::tell(const SlotOutcome& outcome) {
    if (outcome.trouble) {
        failed("erased", outcome);
    } else {
        report().tell("erased", {{"slot", outcome.slot.number()}}, loopName(outcome.slot) + ": erased.");
    }
}

}  // namespace kzq::ctl
