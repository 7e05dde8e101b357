#include "app/restore_flow.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "app/app_parts.h"
#include "app/keep_flow.h"
#include "app/set_up.h"
#include "app/transfer_events.h"
#include "loops/facts.h"
#include "operations/sentences.h"
#include "operations/table.h"
#include "operations/told_backup.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

constexpr auto restoreJob = "restore";

/// What is said below the question.
std::string aboutCopies(const Losses& losses, bool kept) {
    const auto count = losses.replaced.size() + losses.erased.size();
    return !kept       ? words("Erased audio cannot be restored.")
           : count > 2 ? words("They are copied first; Edit > Bring Back returns them.")
           : count > 1 ? words("Both are copied first; Edit > Bring Back returns them.")
                       : words("It is copied first; Edit > Bring Back returns it.");
}

/// The panel may have shown a loop as staying that turned out to differ.
std::string namesOf(const Losses& losses) {
    return inTurn(losses.replaced.empty() ? "" : words("To be replaced: %1.", loopNames(losses.replaced)),
                  losses.erased.empty() ? "" : words("To be erased: %1.", loopNames(losses.erased)));
}

/// One restore, from the press of the button on. Its parts are used on the main thread only.
class Restore {
  public:
    Restore(AppParts& parts, RestoreWish wish, Copies copies)
        : parts_(parts), wish_(std::move(wish)), copies_(copies) {}

    void work(Run& run) {
        if (!run.idle()) {
            return;
        }
        run.letPanelsClose();
        if (!run.ask([&] { start(run); })) {
            return;
        }
        const auto awake = run.keepAwake(AwakeFor::transfer);
        const auto plan = planned(run);
        if (!plan) {
            run.ask([&] { giveUp(run, plan.error()); });
        } else if (changesOf(*plan).empty()) {
            run.ask([&] { finish(run, *plan, {}); });
        } else if (run.ask([&] { return agreed(run, *plan); }).value_or(false) && keeps(run, *plan) &&
                   run.ask([&] { begin(run, *plan); })) {
            const auto outcome = runRestore(*run.pedal, *plan, events_);
            if (keeping_) {
                keeping_->noteGone(outcome);
            }
            run.ask([&] { finish(run, *plan, outcome); });
        }
    }

  private:
    enum class Copying : std::uint8_t { notNeeded, begun, notGoingOn };

    void start(Run& run) {
        run.turn.cover();
        work_ = parts_.teller.newWork();
        parts_.teller.working(work_, words("Comparing with the backup\u2026"));
    }

    /// How far what is under way has come, in the panel as well.
    void follow(Run& run, std::uint64_t bytes, const std::string& subtitle) {
        parts_.transferPanel.open(bytes, words("7306 Restore"), subtitle);
        events_ = eventsOf(parts_.transferPanel.follow(run.poster(), bytes),
                           parts_.teller.followerInWords(work_, run.poster()));
    }

    // On the run's thread.

    /// By what was compared before only if no loop may have been recorded since then.
    Result<RestorePlan> planned(Run& run) {
        auto plan = planOnce(run);
        if (plan && !wish_.order.compared.empty() && !wish_.doubt().isStill(wish_.since)) {
            wish_.order.compared.clear();
            plan = planOnce(run);
        }
        if (plan) {
            if (plan->index.loops != asked().loops) {
                return Trouble{.kind = Trouble::Kind::changed, .where = words("the backup")};
            }
            if (auto changed = changeBetween(wish_.seen, plan->seen, allSlots())) {
                return std::move(*changed);
            }
            if (auto why = run.pedal->stopped()) {
                return std::move(*why);
            }
        }
        return plan;
    }

    /// What the panel showed of the backup, without the loops that are not asked for.
    BackupIndex asked() const {
        auto index = wish_.index;
        if (!wish_.order.slots.empty()) {
            std::erase_if(index.loops, [&](const auto& entry) {
                return std::ranges::find(wish_.order.slots, entry.first) == wish_.order.slots.end();
            });
        }
        return index;
    }

    Result<RestorePlan> planOnce(Run& run) {
        const Events events{
            .begins = [this](SlotNumber slot, Step step) { tell(events_.begins, slot, step); },
            .moved = [this](SlotNumber slot, std::uint64_t bytes) { tell(events_.moved, slot, bytes); }};
        return planRestore(
            *run.pedal, wish_.order,
            [&](std::uint64_t bytes) {
                run.ask([&] { follow(run, bytes, words("Comparing the 7306 with the backup...")); });
            },
            events);
    }

    /// Copies of what goes, if they are wanted: of all of it in one go, so that they are all as good when it
    /// goes.
    bool keeps(Run& run, const RestorePlan& plan) {
        const auto losses = lossesOf(plan);
        const auto begun = run.ask([&] {
            if (auto why = run.pedal->stopped()) {  // during the question
                giveUp(run, *why);
                return Copying::notGoingOn;
            }
            return begins(run, plan, losses);
        });
        if (begun != Copying::begun) {
            return begun == Copying::notNeeded;
        }
        const auto kept = keeping_->work(run);
        return run
            .ask([&] {
                keeping_->end();
                if (!kept.whole()) {
                    giveUpUnkept(run, plan, kept);
                }
                return kept.whole();
            })
            .value_or(false);
    }

    // On the main thread.

    Copying begins(Run& run, const RestorePlan& plan, const Losses& losses) {
        auto lost = losses.erased;
        lost.insert(lost.end(), losses.replaced.begin(), losses.replaced.end());
        keeping_.emplace(parts_, losses.replaced.empty() ? Deed::erase : Deed::write, copies_);
        if (keeping_->plan(lost, plan.seen)) {
            keeping_->begin(run);
            return Copying::begun;
        }
        if (promised_ && losses.any() && !parts_.kept.on()) {
            giveUp(run, Trouble{.kind = Trouble::Kind::changed, .where = words("Keep Copies")});
            return Copying::notGoingOn;
        }
        return Copying::notNeeded;
    }

    bool agreed(Run& run, const RestorePlan& plan) {
        parts_.transferPanel.close();
        const auto losses = lossesOf(plan);
        if (!losses.any()) {
            return true;
        }
        promised_ = copies_ == Copies::kept && parts_.kept.on();
        const auto answer = parts_.environment.dialogs.run(
            {.headline = lossQuestion(losses),
             .finePrint = inTurn(namesOf(losses), aboutCopies(losses, promised_)),
             .buttons = {{words("Restore")}, {words("Cancel")}},
             .destroys = true});
        if (answer != alertFirstButton) {
            uncover(run);
            parts_.teller.idle(work_);
            return false;
        }
        return true;
    }

    void begin(Run& run, const RestorePlan& plan) {
        for (const auto slot : changesOf(plan)) {
            parts_.listening.forget(slot);
        }
        follow(run, bytesToMove(plan),
               words(plan.writes.size(), "Restoring %n loop to the 7306...",
                     "Restoring %n loops to the 7306..."));
        parts_.teller.working(work_, words("Restoring\u2026"));
    }

    void endWith(Run& run, const Outcome& outcome) {
        run.end(outcome, [&] {
            parts_.transferPanel.close();
            run.refresh();
        });
    }

    /// Nothing was begun that a busy pedal could still be at.
    void uncover(Run& run) {
        parts_.transferPanel.close();
        run.turn.end();
        run.refresh();
    }

    /// Before anything was changed.
    void giveUp(Run& run, const Trouble& why) {
        uncover(run);
        if (isMissingRule(why)) {
            parts_.teller.tell(toldMissingRule(why), restoreJob, settingUp(parts_, why, {}));
        } else {
            parts_.teller.tell(toldNotRestored(why), restoreJob);
        }
        parts_.teller.idle(work_);
        showAgainIf(why);
    }

    void giveUpUnkept(Run& run, const RestorePlan& plan, const Outcome& kept) {
        uncover(run);
        auto told = toldNotKept(Deed::write, kept);
        told.what = words("Nothing was restored");
        const auto without = [&parts = parts_, wish = wish_] {
            const bool can = !parts.flows->starting() && !parts.flows->running();
            if (can) {
                beginRestore(parts, wish, Copies::none);
            }
            return can;
        };
        parts_.teller.tell(told, told.failure ? restoreJob : "",
                           told.failure ? Remedy{words("Restore without a copy"), without} : Remedy{},
                           {changesOf(plan), changesOf(plan)});
        parts_.teller.idle(work_);
    }

    void finish(Run& run, const RestorePlan& plan, const Outcome& outcome) {
        endWith(run, outcome);
        const auto asked = changesOf(plan);
        const auto missing = outcome.whole() ? std::vector<SlotNumber>() : notDone(outcome, asked);
        parts_.teller.forgetImports({asked, missing});
        parts_.teller.tell(toldRestore(plan, outcome), restoreJob, {}, {asked, missing});
        parts_.teller.idle(work_);
        if (outcome.end && !outcome.begun) {
            showAgainIf(*outcome.end);
        }
    }

    void showAgainIf(const Trouble& why) {
        if (why.kind == Trouble::Kind::changed) {
            parts_.backingUp.open(BackupPanel::Kind::restore, true);
        }
    }

    AppParts& parts_;
    RestoreWish wish_;
    const Copies copies_;
    bool promised_ = false;  ///< that copies are kept
    std::optional<Keeping> keeping_;
    Teller::Work work_ = 0;
    Events events_;
};

}  // namespace

void beginRestore(AppParts& parts, const RestoreWish& wish, Copies copies) {
    parts.flows->start(transferPatience, [flow = std::make_shared<Restore>(parts, wish, copies)](Run& run) {
        flow->work(run);
    });
}

}  // namespace kzq
