#include "operations/restore.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "loops/capacity.h"
#include "operations/erase.h"
#include "operations/export.h"
#include "operations/loop_file.h"
#include "operations/read_loop.h"
#include "operations/table.h"

namespace kzq {

namespace {

using Kind = Trouble::Kind;

class Planning {
  public:
    Planning(Pedal& pedal, RestorePlan plan, const std::map<SlotNumber, bool>& compared, const Events& events)
        : pedal_(pedal), plan_(std::move(plan)), compared_(compared), events_(events) {}

    /// `erase`: the slots that are to be empty, if they are not.
    Result<RestorePlan> compare(const std::vector<SlotNumber>& erase);

  private:
    Result<bool> isSame(SlotNumber slot);
    void planWrite(SlotNumber slot);

    Pedal& pedal_;
    RestorePlan plan_;
    const std::map<SlotNumber, bool>& compared_;
    const Events& events_;
};

Result<RestorePlan> Planning::compare(const std::vector<SlotNumber>& erase) {
    std::ranges::copy_if(erase, std::back_inserter(plan_.erases),
                         [this](auto slot) { return plan_.seen.contains(slot); });
    for (const auto& [slot, entry] : plan_.index.loops) {
        const auto same = isSame(slot);
        if (!same) {
            return same.error();
        }
        if (*same) {
            plan_.same.push_back(slot);
        } else {
            planWrite(slot);
        }
    }
    auto kept = plan_.seen;
    std::ranges::for_each(plan_.erases, [&kept](auto slot) { kept.remove(slot); });
    if (existingAndTeedUpExportSamples(kept, plan_.writes) > capacityFrames) {
        return Trouble{Kind::noRoom};
    }
    return std::move(plan_);
}

/// Whether the pedal's loop has the audio of the backup.
Result<bool> Planning::isSame(SlotNumber slot) {
    const auto* const loop = plan_.seen.find(slot);
    if (loop == nullptr || !plan_.index.hasLengthOf(slot, *loop)) {
        return false;
    }
    if (const auto known = compared_.find(slot); known != compared_.end()) {
        return known->second;
    }
    Outcome reading;
    auto image = readLoop(pedal_, slot, Step::compare, events_, reading);
    if (reading.end) {
        return std::move(*reading.end);
    }
    if (!*image) {
        tell(events_.slot, SlotOutcome{.slot = slot, .trouble = image->error()});
    }
    return image->map(
        [&](const Bytes& bytes) { return audioDigest(bytes) == plan_.index.loops.at(slot).sha256; });
}

void Planning::planWrite(SlotNumber slot) {
    const auto& entry = plan_.index.loops.at(slot);
    plan_.writes[slot] = {plan_.folder.fileOf(entry), slot.number(), plan_.seen.contains(slot),
                          Frames{entry.samples}.bytes()};
}

/// One outcome of two runs, one behind the other.
void append(Outcome& outcome, Outcome next) {
    std::ranges::move(next.slots, std::back_inserter(outcome.slots));
    outcome.end = std::move(next.end);
    outcome.doubt = std::move(next.doubt);
    outcome.unseen += next.unseen;
    outcome.begun = outcome.begun || next.begun;
}

}  // namespace

Result<BackupIndex> indexToRestore(const RestoreOrder& order) {
    const auto& slots = order.slots;
    auto index = order.folder.index();
    if (auto partial = order.folder.partialIndex();
        !index && index.error().kind == Kind::noBackup && partial) {
        index = slots.empty() ? Trouble{Kind::backupIncomplete, order.folder.path()} : std::move(partial);
    }
    if (!index) {
        return index;
    }
    if (!slots.empty()) {
        std::erase_if(index->loops, [&slots](const auto& loop) {
            return std::ranges::find(slots, loop.first) == slots.end();
        });
        if (index->loops.empty()) {
            return Trouble{Kind::emptySlot, order.folder.path()};
        }
    }
    std::uint64_t frames = 0;
    for (const auto& [slot, entry] : index->loops) {
        frames += entry.samples;
    }
    if (frames > capacityFrames) {
        return Trouble{Kind::backupTooLong, order.folder.path()};
    }
    return index;
}

Result<RestorePlan> planRestore(Pedal& pedal, const RestoreOrder& order,
                                const std::function<void(std::uint64_t bytes)>& total, const Events& events) {
    auto index = indexToRestore(order);
    if (!index) {
        return std::move(index.error());
    }
    RestorePlan plan{.folder = order.folder, .index = {}, .seen = {}};
    auto absent = order.slots.empty() ? allSlots() : order.slots;
    std::erase_if(absent, [&index](auto slot) { return index->loops.contains(slot); });
    for (const auto& [slot, entry] : index->loops) {
        if (order.folder.isIntact(entry)) {
            plan.index.loops.emplace(slot, entry);
        } else if (order.skipDamaged) {
            plan.damaged.push_back(slot);
        } else {
            return Trouble{Kind::damaged, order.folder.fileOf(entry)};
        }
        if (auto end = pedal.stopped()) {
            return std::move(*end);
        }
    }
    auto status = pedal.status();
    if (!status) {
        return std::move(status.error());
    }
    if (auto impossible = impossibleLength(status->loops, allSlots())) {
        return std::move(*impossible);
    }
    auto unread = plan.index;
    std::erase_if(unread.loops, [&order](const auto& loop) { return order.compared.contains(loop.first); });
    total(bytesToCompare(unread, status->loops));
    plan.seen = std::move(status->loops);
    const bool all = order.slots.empty();
    plan.absent = all ? std::vector<SlotNumber>() : absent;
    return Planning(pedal, std::move(plan), order.compared, events)
        .compare(all ? absent : std::vector<SlotNumber>());
}

std::uint64_t bytesToMove(const RestorePlan& plan) {
    std::uint64_t bytes = 0;
    for (const auto& [slot, info] : plan.writes) {
        bytes += 2 * info.bytes;
    }
    return bytes;
}

Outcome runRestore(Pedal& pedal, const RestorePlan& plan, const Events& events) {
    Outcome outcome{.wanted = plan.erases.size() + plan.writes.size()};
    auto seen = plan.seen;
    auto untouched = allSlots();
    if (!plan.erases.empty()) {
        append(outcome, runErase(pedal, {plan.erases, seen, untouched}, events));
        for (const auto slot : plan.erases) {
            seen.remove(slot);
            std::erase(untouched, slot);
        }
    }
    if (!outcome.end && !plan.writes.empty()) {
        std::erase_if(untouched, [&plan](auto slot) { return plan.writes.contains(slot); });
        std::map<SlotNumber, std::string> digests;
        for (const auto& [slot, info] : plan.writes) {
            digests[slot] = plan.index.loops.at(slot).sha256;
        }
        append(outcome, runExport(pedal,
                                  {.exports = plan.writes,
                                   .seen = std::move(seen),
                                   .untouched = std::move(untouched),
                                   .batches = Batches::each,
                                   .full = true,
                                   .verify = true,
                                   .digests = std::move(digests)},
                                  events));
    }
    return outcome;
}

}  // namespace kzq
