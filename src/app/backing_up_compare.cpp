#include <chrono>

#include "app/app_parts.h"
#include "app/backing_up.h"
#include "app/set_up.h"
#include "words/words.h"

namespace kzq {

namespace {

constexpr auto comparingJob = "compare";
constexpr std::chrono::seconds sleepIsSeenAfter(5);

}  // namespace

void BackingUp::startOver() {
    shown_ = std::make_shared<int>();
    loops_ = parts_.model.table();
    known_.clear();
    doubted_ = false;
    forgetCompared();
    show();
    checkFiles();
    goOn();
    lookAfterSleep();
}

/// Nothing reports that the computer has slept.
void BackingUp::lookAfterSleep() {
    parts_.environment.executor.mainAfter(sleepIsSeenAfter, [this, shown = std::weak_ptr(shown_)] {
        if (!shown.expired()) {
            tableChanged();
        }
        if (!shown.expired()) {
            lookAfterSleep();
        }
    });
}

/// Only what is known of the backup's own files still counts.
void BackingUp::forgetCompared() {
    counts_ = std::make_shared<int>();
    std::erase_if(known_, [](const auto& entry) { return entry.second != Compared::damaged; });
    since_ = doubt_();
    gaveUp_ = false;
    if (comparing_) {
        parts_.flows->stopYielding();
    }
}

/// Those of loops that the pedal has as well are read once more when they are compared.
void BackingUp::checkFiles() {
    const auto* const chosen = backup();
    if (!restores() || chosen == nullptr || !chosen->index) {
        return;
    }
    parts_.environment.executor.background(
        Priority::standard, [this, post = parts_.teller.poster(), shown = std::weak_ptr(shown_),
                             folder = chosen->snapshot.folder, loops = chosen->index->loops] {
            for (const auto& [slot, entry] : loops) {
                if (!shown.expired() && !folder.isIntact(entry)) {
                    post([this, shown, slot = slot] { learn(shown, slot, Compared::damaged); });
                }
            }
        });
}

void BackingUp::learn(const std::weak_ptr<int>& counts, SlotNumber slot, Compared compared) {
    if (!counts.expired()) {
        auto& known = known_[slot];
        known = known == Compared::damaged ? known : compared;
        show();
    }
}

BackupDiff BackingUp::uncompared() const {
    const auto* const chosen = backup();
    BackupDiff diff{BackupFolder({}), {}, {}};
    if (chosen == nullptr || !chosen->index) {
        return diff;
    }
    diff.folder = chosen->snapshot.folder;
    for (const auto& [slot, entry] : chosen->index->loops) {
        const auto* const loop = loops_.find(slot);
        if (loop != nullptr && chosen->index->hasLengthOf(slot, *loop) && !known_.contains(slot)) {
            diff.index.loops.emplace(slot, entry);
            diff.loops.put(slot, *loop);
        }
    }
    return diff;
}

void BackingUp::goOn() {
    if (!isOpen() || comparing_ || gaveUp_) {
        return;
    }
    if (const auto diff = uncompared(); !diff.loops.empty()) {
        comparing_ = parts_.flows->startYielding(
            transferPatience,
            [this, counts = std::weak_ptr(counts_), diff](Run& run) { compare(run, counts, diff); });
    }
}

/// On the run's thread.
void BackingUp::compare(Run& run, const std::weak_ptr<int>& counts, const BackupDiff& diff) {
    Teller::Work work = 0;
    Events events;
    const auto begun = run.ask([&] {
        work = parts_.teller.newWork();
        auto follow = parts_.teller.follower(work, run.poster(), english("Comparing loop %1\u2026"));
        events.begins = [follow](SlotNumber slot, Step /*step*/) mutable { follow(slot); };
        events.moved = [follow](SlotNumber slot, std::uint64_t /*bytes*/) mutable { follow(slot); };
        events.slot = [this, counts, post = run.poster()](const SlotOutcome& loop) {
            post([this, counts, slot = loop.slot, compared = comparedAs(loop)] {
                learn(counts, slot, compared);
            });
        };
        return !counts.expired();
    });
    Outcome outcome;
    if (begun.value_or(false) && run.pedal) {
        const auto awake = run.keepAwake(AwakeFor::transfer);
        outcome = runDiff(*run.pedal, diff, events);
    }
    run.ask([&] {
        run.turn.end();
        parts_.teller.idle(work);
        comparing_ = false;
        const bool busy = outcome.end && outcome.end->kind == Trouble::Kind::busy;  // another doubt by itself
        if (busy || !counts.expired()) {
            gaveUp_ = !run.pedal || outcome.end.has_value();
            tellMissingRule(outcome);
        }
        goOn();
    });
}

void BackingUp::tellMissingRule(const Outcome& outcome) {
    if (const auto* const trouble = mainTrouble(outcome); trouble != nullptr && isMissingRule(*trouble)) {
        parts_.teller.tell(toldMissingRule(*trouble), comparingJob, settingUp(parts_, *trouble, {}));
    } else if (!gaveUp_) {
        parts_.teller.settle(comparingJob);
    }
}

}  // namespace kzq
