#include "app/model/loop_model.h"

#include <algorithm>

#include "loops/capacity.h"

namespace kzq {

Loops LoopModel::unknown() {
    Loops loops;
    loops.complete = false;
    return loops;
}

void LoopModel::reset() {
    ++pedal_;
    table_ = unknown();
    selection_.clear();
    staging_.clear();
}

bool LoopModel::arrived(const Loops& loops) {
    if (loops.complete) {
        table_ = loops;
        std::erase_if(selection_, [this](SlotNumber slot) { return !table_.contains(slot); });
    }
    return loops.complete;
}

std::optional<LoopModel::Change> LoopModel::changed(const Loops& loops) {
    if (!arrived(loops)) {
        return std::nullopt;
    }
    Change change{.selected = selection_};
    for (auto& [slot, info] : staging_) {
        info.occupied = loops.contains(slot);
        change.overwrites = change.overwrites || info.occupied;
    }
    return change;
}

void LoopModel::select(SlotNumber slot, bool on) {
    if (on && table_.contains(slot)) {
        selection_.insert(slot);
    } else {
        selection_.erase(slot);
    }
}

void LoopModel::selectAll() {
    for (const auto& [slot, loop] : table_) {
        selection_.insert(slot);
    }
}

LoopModel::Staged LoopModel::stage(const ExportInfo& info, std::uint64_t drop) {
    const auto slot = SlotNumber::of(info.destination).value();
    if (drop < lastStaged_[slot]) {
        return Staged::overtaken;
    }
    if (!fitsCapacity(inUseWith(slot, Frames::ofBytes(info.bytes)).count)) {
        return Staged::tooLarge;
    }
    lastStaged_[slot] = drop;
    staging_.insert_or_assign(slot, info);
    return Staged::yes;
}

std::optional<SlotNumber> LoopModel::freeFrom(SlotNumber wanted,
                                              const std::multiset<SlotNumber>& expected) const {
    const auto hasFile = [&](SlotNumber slot) { return staging_.contains(slot) || expected.contains(slot); };
    if (!hasFile(wanted)) {
        return wanted;
    }
    auto slots = allSlots();
    std::rotate(slots.begin(), std::ranges::find(slots, wanted), slots.end());
    const auto free = std::ranges::find_if(
        slots, [&](SlotNumber slot) { return !hasFile(slot) && !table_.contains(slot); });
    return free == slots.end() ? std::nullopt : std::optional(*free);
}

bool LoopModel::stillAskedAbout(const Exports& asked) const {
    return std::ranges::all_of(asked, [this](const auto& entry) {
        const auto now = staging_.find(entry.first);
        return now != staging_.end() && now->second.source == entry.second.source &&
               (entry.second.occupied || !table_.contains(entry.first));
    });
}

Frames LoopModel::inUse() const {
    return {existingAndTeedUpExportSamples(table_, staging_)};
}

Frames LoopModel::inUseWith(SlotNumber slot, Frames frames) const {
    return {existingAndTeedUpExportSamplesWithProposedExport(table_, staging_, frames.count, slot)};
}

}  // namespace kzq
