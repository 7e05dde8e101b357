#include "operations/table.h"

#include <utility>

#include "loops/capacity.h"

namespace kzq {

std::optional<Trouble> changeBetween(const Loops& seen, const Loops& now,
                                     const std::vector<SlotNumber>& slots) {
    for (const auto slot : slots) {
        const auto* const before = seen.find(slot);
        const auto* const after = now.find(slot);
        if (before == nullptr && after != nullptr) {
            return Trouble{Trouble::Kind::changed, loopName(slot), 0, "recorded"};
        }
        if (before != nullptr && after == nullptr) {
            return Trouble{Trouble::Kind::changed, loopName(slot), 0, "erased"};
        }
        if (before != nullptr && *before != *after) {
            return Trouble{Trouble::Kind::changed, loopName(slot), 0, "changed"};
        }
    }
    return std::nullopt;
}

std::optional<Trouble> impossibleLength(const Loops& table, const std::vector<SlotNumber>& slots) {
    for (const auto slot : slots) {
        const auto* const loop = table.find(slot);
        if (loop != nullptr && !hasPossibleLength(*loop)) {
            return Trouble{Trouble::Kind::tooLarge, loopName(slot)};
        }
    }
    return std::nullopt;
}

Result<Loops> unchangedTable(Pedal& pedal, const Loops& seen, const std::vector<SlotNumber>& slots,
                             const std::vector<SlotNumber>& untouched) {
    auto now = pedal.status();
    if (!now) {
        return std::move(now.error());
    }
    auto trouble = impossibleLength(now->loops, slots);
    if (!trouble) {
        trouble = changeBetween(seen, now->loops, slots);
    }
    if (!trouble) {
        trouble = changeBetween(seen, now->loops, untouched);
    }
    if (trouble) {
        return std::move(*trouble);
    }
    return std::move(now->loops);
}

}  // namespace kzq
