#include "operations/backup_changes.h"

namespace kzq {

namespace {

using Change = BackupChange::Kind;

Change kindOf(const BackupChange& change, Compared known) {
    if (!change.inBackup) {
        return !change.onPedal ? Change::nothing : Change::onlyOnPedal;
    }
    if (known == Compared::damaged) {
        return Change::damaged;
    }
    if (!change.onPedal) {
        return Change::onlyInBackup;
    }
    if (known == Compared::different || change.onPedal != change.inBackup) {
        return Change::changed;
    }
    return known == Compared::same ? Change::same : Change::sameLength;
}

}  // namespace

Compared comparedAs(const SlotOutcome& outcome) {
    if (!outcome.trouble) {
        return outcome.did == SlotOutcome::Did::unchanged ? Compared::same : Compared::no;
    }
    return outcome.trouble->kind == Trouble::Kind::differs   ? Compared::different
           : outcome.trouble->kind == Trouble::Kind::damaged ? Compared::damaged
                                                             : Compared::no;
}

std::vector<BackupChange> changesBetween(const Loops& loops, const BackupIndex& index,
                                         const std::map<SlotNumber, Compared>& known) {
    std::vector<BackupChange> changes;
    for (const auto slot : allSlots()) {
        BackupChange change{.slot = slot};
        if (const auto* const loop = loops.find(slot)) {
            change.onPedal = Frames{loop->samples};
        }
        if (const auto entry = index.loops.find(slot); entry != index.loops.end()) {
            change.inBackup = Frames{entry->second.samples};
        }
        const auto found = known.find(slot);
        change.kind = kindOf(change, found == known.end() ? Compared::no : found->second);
        changes.push_back(change);
    }
    return changes;
}

Frames afterRestore(const std::vector<BackupChange>& changes, bool erases) {
    Frames frames;
    for (const auto& change : changes) {
        const auto& held = change.inBackup || erases ? change.inBackup : change.onPedal;
        frames.count += held.value_or(Frames{}).count;
    }
    return frames;
}

}  // namespace kzq
