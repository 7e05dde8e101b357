#include "operations/erase.h"

#include <utility>

#include "operations/table.h"

namespace kzq {

namespace {

/// The pedal is not asked any more. One that is there keeps its word.
void countUnseen(std::size_t agreed, SlotNumber first, Outcome& outcome) {
    if (agreed != 0 && outcome.end && outcome.end->kind != Trouble::Kind::cancelled) {
        outcome.doubt = SlotOutcome{first, SlotOutcome::Did::erased};
    } else {
        outcome.unseen = agreed;
    }
}

}  // namespace

Outcome runErase(Pedal& pedal, const EraseOrder& order, const Events& events) {
    const auto& slots = order.slots;
    Outcome outcome{.wanted = slots.size()};
    if (const auto table = unchangedTable(pedal, order.seen, slots, order.untouched); !table) {
        outcome.end = table.error();
        return outcome;
    }
    const auto agreed = pedal.eraseLoops(slots);
    outcome.begun = pedal.begun();
    outcome.end = agreed ? pedal.stopped() : std::optional(agreed.error());
    const auto now = !outcome.end ? std::optional(pedal.status()) : std::nullopt;
    if (now && !*now) {
        outcome.end = now->error();
    }
    if (!now || !*now) {
        countUnseen(agreed.value_or(outcome.begun ? 1 : 0), slots.front(), outcome);
        return outcome;
    }
    for (const auto slot : slots) {
        SlotOutcome loop{slot, SlotOutcome::Did::erased};
        if ((*now)->loops.contains(slot)) {
            loop = {slot, SlotOutcome::Did::failed, Trouble{Trouble::Kind::notErased}};
        }
        outcome.add(events, std::move(loop));
    }
    return outcome;
}

}  // namespace kzq
