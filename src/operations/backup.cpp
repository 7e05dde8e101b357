#include "operations/backup.h"

#include <algorithm>
#include <utility>

#include "audio/wave.h"
#include "loops/capacity.h"
#include "operations/loop_file.h"
#include "operations/read_loop.h"
#include "operations/table.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

/// What an earlier run saved stays in the index if its file is intact and the pedal still has such a loop.
/// Otherwise the file is kept, as it may be the only copy, but is not part of this backup.
void keepWhatIsThere(BackupPlan& plan) {
    std::erase_if(plan.index.loops, [&plan](const auto& kept) {
        const auto* const loop = plan.status.loops.find(kept.first);
        return loop == nullptr || !kept.second.describes(*loop) || !plan.folder.loop(kept.second);
    });
}

class Backup {
  public:
    Backup(Pedal& pedal, BackupPlan plan, const Events& events)
        : pedal_(pedal), plan_(std::move(plan)), events_(events) {}

    Outcome save();
    Outcome compare();

  private:
    std::uint64_t sizeToSave() const;
    std::vector<SlotNumber> missingFirst() const;
    void save(SlotNumber slot, const Loop& loop);
    void store(SlotNumber slot, const Loop& loop, const Bytes& image, SlotOutcome& outcome);
    void finish();
    std::optional<SlotOutcome> compared(SlotNumber slot);
    std::optional<SlotOutcome> comparedAudio(SlotNumber slot, const BackupEntry& entry);

    void add(SlotOutcome outcome) {
        tell(events_.slot, outcome);
        outcome_.slots.push_back(std::move(outcome));
    }

    Pedal& pedal_;
    BackupPlan plan_;
    const Events& events_;
    Outcome outcome_;
};

Outcome Backup::save() {
    const auto& loops = plan_.status.loops;
    outcome_.wanted = loops.size();
    outcome_.end = tooLittleSpace(plan_.folder.path(), sizeToSave(), plan_.freeSpace);
    if (outcome_.end) {
        return std::move(outcome_);
    }
    plan_.folder.make();
    for (const auto slot : missingFirst()) {
        save(slot, *loops.find(slot));
        if (outcome_.end) {
            break;
        }
    }
    outcome_.unseen = plan_.index.loops.size() - outcome_.done();
    if (!outcome_.end && outcome_.done() == outcome_.wanted) {
        finish();
    }
    return std::move(outcome_);
}

/// What the files of the loops that the index does not have will take.
std::uint64_t Backup::sizeToSave() const {
    std::uint64_t size = 0;
    for (const auto& [slot, loop] : plan_.status.loops) {
        size +=
            plan_.index.loops.contains(slot) || !hasPossibleLength(loop) ? 0 : waveHeaderSize + loop.bytes;
    }
    return size;
}

std::vector<SlotNumber> Backup::missingFirst() const {
    std::vector<SlotNumber> order;
    for (const auto& [slot, loop] : plan_.status.loops) {
        order.push_back(slot);
    }
    std::ranges::stable_partition(order, [this](auto slot) { return !plan_.index.loops.contains(slot); });
    return order;
}

void Backup::save(SlotNumber slot, const Loop& loop) {
    auto image = hasPossibleLength(loop) ? readLoop(pedal_, slot, Step::read, events_, outcome_)
                                         : Trouble{Kind::tooLarge};
    if (!image) {
        return;
    }
    SlotOutcome outcome{.slot = slot, .frames = Frames{loop.samples}};
    if (!*image) {
        outcome.trouble = std::move(image->error());
        plan_.index.loops.erase(slot);
    } else if (framesOf(**image) != loop.samples) {
        outcome.trouble = Trouble{Kind::changedWhileRead};
        plan_.index.loops.erase(slot);
    } else {
        store(slot, loop, **image, outcome);
    }
    add(std::move(outcome));
}

void Backup::store(SlotNumber slot, const Loop& loop, const Bytes& image, SlotOutcome& outcome) {
    auto& saved = plan_.index.loops;
    const auto& folder = plan_.folder;
    BackupEntry entry{.samples = loop.samples, .tempo = loop.tempo, .channel = loop.channel};
    const auto kept = saved.find(slot);
    if (kept != saved.end() && kept->second.sha256 == audioDigest(image)) {
        outcome.did = Did::kept;
        outcome.file = folder.path() / kept->second.file;
        return;
    }
    saved.erase(slot);
    outcome.file = folder.path();
    const auto stored = folder.addLoop(slot, image, entry).and_then([&] {
        saved[slot] = entry;
        return folder.writePartialIndex(plan_.index);
    });
    if (stored) {
        outcome.did = Did::saved;
        outcome.file = folder.path() / entry.file;
        return;
    }
    saved.erase(slot);
    outcome.trouble = stored.error();
    outcome_.end = stored.error();
}

/// Only loops that were on the pedal at the same time are a backup.
void Backup::finish() {
    const auto now = pedal_.status();
    outcome_.end = now ? changeBetween(plan_.status.loops, now->loops, allSlots()) : now.error();
    if (!outcome_.end) {
        if (auto written = plan_.folder.finish(plan_.index); !written) {
            written.error().where = plan_.folder.path();
            outcome_.end = std::move(written.error());
        }
    }
}

Outcome Backup::compare() {
    for (const auto slot : allSlots()) {
        outcome_.wanted += plan_.status.loops.contains(slot) || plan_.index.loops.contains(slot) ? 1U : 0U;
    }
    for (const auto slot : allSlots()) {
        if (auto outcome = compared(slot)) {
            add(std::move(*outcome));
        }
        if (outcome_.end) {
            break;
        }
    }
    return std::move(outcome_);
}

/// Nothing of a slot that is empty on both sides, or if the work ended.
std::optional<SlotOutcome> Backup::compared(SlotNumber slot) {
    const auto* const loop = plan_.status.loops.find(slot);
    const auto entry = plan_.index.loops.find(slot);
    const auto differs = [slot](Trouble why) { return SlotOutcome{.slot = slot, .trouble = std::move(why)}; };
    if (entry == plan_.index.loops.end()) {
        return loop == nullptr ? std::nullopt : std::optional(differs({Kind::differs, {}, 0, "recorded"}));
    }
    if (!plan_.folder.loop(entry->second)) {
        return differs({Kind::damaged, plan_.folder.path() / entry->second.file});
    }
    if (loop == nullptr) {
        return differs({Kind::differs, {}, 0, "erased"});
    }
    if (!plan_.index.hasLengthOf(slot, *loop)) {
        return differs({Kind::differs, {}, 0, "changed"});
    }
    return comparedAudio(slot, entry->second);
}

std::optional<SlotOutcome> Backup::comparedAudio(SlotNumber slot, const BackupEntry& entry) {
    const auto image = readLoop(pedal_, slot, Step::read, events_, outcome_);
    if (!image) {
        return std::nullopt;
    }
    SlotOutcome outcome{.slot = slot, .frames = Frames{entry.samples}};
    if (!*image) {
        outcome.trouble = image->error();
    } else if (audioDigest(**image) != entry.sha256) {
        outcome.trouble = Trouble{Kind::differs, {}, 0, "changed"};
    } else {
        outcome.did = Did::unchanged;
    }
    return outcome;
}

}  // namespace

Result<BackupPlan> planBackup(Pedal& pedal, const BackupFolder& folder) {
    const bool finished = folder.isComplete();
    auto index = finished ? folder.index() : folder.partialIndex();
    if (!index && (finished || index.error().kind != Kind::noBackup)) {
        return std::move(index.error());
    }
    auto status = pedal.status();
    if (!status) {
        return std::move(status.error());
    }
    BackupPlan plan{folder, std::move(*status), finished, std::move(index).value_or(BackupIndex{})};
    if (!finished) {
        plan.index.firmware = plan.status.version;
        keepWhatIsThere(plan);
    }
    return plan;
}

std::uint64_t bytesToRead(const BackupPlan& plan) {
    if (plan.finished) {
        return bytesToCompare(plan.index, plan.status.loops);
    }
    std::uint64_t bytes = 0;
    for (const auto& [slot, loop] : plan.status.loops) {
        bytes += hasPossibleLength(loop) ? loop.alignedBytes : 0;
    }
    return bytes;
}

Outcome runBackup(Pedal& pedal, BackupPlan plan, const Events& events) {
    const bool finished = plan.finished;
    Backup backup(pedal, std::move(plan), events);
    return finished ? backup.compare() : backup.save();
}

}  // namespace kzq
