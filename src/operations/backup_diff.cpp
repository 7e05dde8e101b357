#include "operations/backup_diff.h"

#include <optional>
#include <utility>

#include "operations/loop_file.h"
#include "operations/read_loop.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

SlotOutcome different(SlotNumber slot, const char* how) {
    return {.slot = slot, .trouble = Trouble{Kind::differs, {}, 0, how}};
}

/// Nothing if the work ended.
std::optional<SlotOutcome> comparedAudio(Pedal& pedal, const BackupDiff& diff, SlotNumber slot,
                                         const Events& events, Outcome& whole) {
    const auto& entry = diff.index.loops.at(slot);
    if (!diff.folder.isIntact(entry)) {
        return SlotOutcome{.slot = slot, .trouble = Trouble{Kind::damaged, diff.folder.fileOf(entry)}};
    }
    const auto image = readLoop(pedal, slot, Step::read, events, whole);
    if (!image) {
        return std::nullopt;
    }
    if (!*image) {
        return SlotOutcome{.slot = slot, .trouble = image->error()};
    }
    return audioDigest(**image) == entry.sha256 ? SlotOutcome{.slot = slot, .did = Did::unchanged}
                                                : different(slot, "changed");
}

std::optional<SlotOutcome> compared(Pedal& pedal, const BackupDiff& diff, SlotNumber slot,
                                    const Events& events, Outcome& whole) {
    const auto* const loop = diff.loops.find(slot);
    if (!diff.index.loops.contains(slot)) {
        return different(slot, "recorded");
    }
    if (loop == nullptr) {
        return different(slot, "erased");
    }
    if (!diff.index.hasLengthOf(slot, *loop)) {
        return different(slot, "changed");
    }
    return diff.read ? comparedAudio(pedal, diff, slot, events, whole)
                     : SlotOutcome{.slot = slot, .did = Did::sameLength};
}

}  // namespace

std::uint64_t bytesToRead(const BackupDiff& diff) {
    return diff.read ? bytesToCompare(diff.index, diff.loops) : 0;
}

Outcome runDiff(Pedal& pedal, const BackupDiff& diff, const Events& events) {
    std::vector<SlotNumber> slots;
    for (const auto slot : allSlots()) {
        if (diff.loops.contains(slot) || diff.index.loops.contains(slot)) {
            slots.push_back(slot);
        }
    }
    Outcome outcome{.wanted = slots.size()};
    for (const auto slot : slots) {
        auto next = compared(pedal, diff, slot, events, outcome);
        if (next) {
            tell(events.slot, *next);
            outcome.slots.push_back(std::move(*next));
        }
        if (outcome.end) {
            break;
        }
    }
    return outcome;
}

}  // namespace kzq
