#include "operations/backup.h"

#include <algorithm>
#include <memory>
#include <system_error>
#include <utility>

#include "audio/wave.h"
#include "loops/capacity.h"
#include "operations/loop_file.h"
#include "operations/read_loop.h"
#include "operations/snapshot_draft.h"
#include "operations/table.h"
#include "platform/log.h"
#include "platform/process.h"
#include "platform/replace_file.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

/// An empty file that says that there was one.
constexpr auto backupMarker = "backed-up";

class Backup {
  public:
    Backup(Pedal& pedal, const BackupOrder& order, const Events& events)
        : pedal_(pedal), order_(order), loops_(order.status.loops), events_(events) {}

    BackupEnd run();

  private:
    std::uint64_t sizeToSave() const;
    std::vector<SlotNumber> missingFirst() const;
    void save(SlotNumber slot, const Loop& loop);
    void store(const Loop& loop, const Bytes& image, SlotOutcome& outcome);
    void finish();
    void countEarlier();

    Pedal& pedal_;
    const BackupOrder& order_;
    const Loops& loops_;
    const Events& events_;
    std::unique_ptr<SnapshotDraft> draft_;
    Outcome outcome_;
    std::optional<Snapshot> snapshot_;
};

BackupEnd Backup::run() {
    outcome_.wanted = loops_.size();
    auto draft = SnapshotDraft::make(order_.generations, order_.stamp());
    if (!draft) {
        outcome_.end = std::move(draft.error());
        return {std::move(outcome_), {}};
    }
    draft_ = std::move(*draft);
    outcome_.end = tooLittleSpace(order_.generations.path(), sizeToSave(), order_.freeSpace);
    for (const auto slot : missingFirst()) {
        if (outcome_.end) {
            break;
        }
        save(slot, *loops_.find(slot));
    }
    if (!outcome_.end && outcome_.done() == outcome_.wanted) {
        finish();
    }
    if (!snapshot_ && !draft_->index().loops.empty()) {
        snapshot_ = {draft_->path().filename(), BackupFolder(draft_->path())};
    }
    countEarlier();
    return {std::move(outcome_), std::move(snapshot_)};
}

/// What the files will take of the disk.
std::uint64_t Backup::sizeToSave() const {
    std::uint64_t size = 0;
    for (const auto& [slot, loop] : loops_) {
        size += draft_->isFree(slot, loop) || !hasPossibleLength(loop) ? 0 : waveHeaderSize + loop.bytes;
    }
    return size;
}

std::vector<SlotNumber> Backup::missingFirst() const {
    std::vector<SlotNumber> order;
    for (const auto& [slot, loop] : loops_) {
        order.push_back(slot);
    }
    std::stable_partition(order.begin(), order.end(),
                          [this](auto slot) { return !draft_->wasSaved(slot, *loops_.find(slot)); });
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
    } else if (framesOf(**image) != loop.samples) {
        outcome.trouble = Trouble{Kind::changedWhileRead};
    } else {
        store(loop, **image, outcome);
    }
    tell(events_.slot, outcome);
    outcome_.slots.push_back(std::move(outcome));
}

void Backup::store(const Loop& loop, const Bytes& image, SlotOutcome& outcome) {
    outcome.file = draft_->path();
    const auto added = draft_->add(outcome.slot, loop, image);
    if (added) {
        outcome.did = *added == SnapshotDraft::Way::written ? Did::saved : Did::kept;
        outcome.file /= draft_->index().loops.at(outcome.slot).file;
    } else {
        outcome.trouble = added.error();
        outcome_.end = added.error();
    }
}

/// Only loops that were on the pedal at the same time are a backup.
void Backup::finish() {
    const auto now = pedal_.status();
    outcome_.end = now ? changeBetween(loops_, now->loops, allSlots()) : now.error();
    if (outcome_.end) {
        return;
    }
    auto finished = draft_->finish(order_.status.version, order_.stamp());
    if (finished) {
        snapshot_ = std::move(*finished);
    } else {
        finished.error().where = draft_->path();
        outcome_.end = std::move(finished.error());
    }
}

/// What an interrupted run saved, and this one did not come to.
void Backup::countEarlier() {
    for (const auto& [slot, loop] : loops_) {
        const bool came = std::ranges::find(outcome_.slots, slot, &SlotOutcome::slot) != outcome_.slots.end();
        outcome_.unseen += !came && draft_->wasSaved(slot, loop) ? 1U : 0U;
    }
}

}  // namespace

std::uint64_t bytesToRead(const Loops& loops) {
    std::uint64_t bytes = 0;
    for (const auto& [slot, loop] : loops) {
        bytes += hasPossibleLength(loop) ? loop.alignedBytes : 0;
    }
    return bytes;
}

BackupEnd runBackup(Pedal& pedal, const BackupOrder& order, const Events& events) {
    return Backup(pedal, order, events).run();
}

bool wasEverBackedUp(const std::filesystem::path& home) {
    std::error_code unknown;
    return home.empty() || std::filesystem::exists(programFolderIn(home) / backupMarker, unknown) || unknown;
}

void rememberBackup(const std::filesystem::path& home) {
    if (home.empty()) {
        return;
    }
    const auto folder = programFolderIn(home);
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error || !replaceFile(folder, backupMarker, {})) {
        log(LogCategory::application, "it could not be noted that there is a backup");
    }
}

}  // namespace kzq
