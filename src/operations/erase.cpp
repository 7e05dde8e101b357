#include "operations/erase.h"

#include <utility>

#include "operations/table.h"

namespace kzq {

namespace {

/// The pedal is not asked any more. One that is there keeps its word, if it `answered`.
void countUnseen(std::size_t agreed, bool answered, SlotNumber first, Outcome& outcome) {
    const bool cancelled = outcome.end && outcome.end->kind == Trouble::Kind::cancelled;
    if (agreed != 0 && outcome.end && !(cancelled && answered)) {
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
        const auto last = pedal.link()->lastTrouble();
        const bool answered = agreed && !(last && last->kind == Trouble::Kind::noAnswer);
        countUnseen(agreed.value_or(outcome.begun ? 1 : 0), answered, slots.front(), outcome);
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
