#include "app/erase_flow.h"

#include <algorithm>
#include <utility>

#include "app/app_parts.h"
#include "app/keep_flow.h"
#include "app/select_again.h"
#include "operations/erase.h"
#include "words/words.h"

namespace kzq {

namespace {

/// It cannot be cancelled.
constexpr Patience erasePatience{.limit = std::chrono::seconds(30), .stops = true};

bool pedalIsGone(const Trouble& trouble) {
    return trouble.kind == Trouble::Kind::unplugged || trouble.kind == Trouble::Kind::silent;
}

/// One erase, from the press of the button on. Its parts are used on the main thread only.
class Erase {
  public:
    Erase(AppParts& parts, Copies copies) : parts_(parts), keeping_(parts, Deed::erase, copies) {
        const auto& selection = parts.model.selection();
        order_ = {.slots = {selection.begin(), selection.end()}, .seen = parts.model.table()};
    }

    void work(Run& run) {
        if (!run.idle() || !run.ask([&] { return start(run); }).value_or(false)) {
            return;
        }
        if (keeping_.planned()) {
            const auto kept = keeping_.work(run);
            if (!kept.whole()) {
                run.ask([&] { giveUp(run, kept); });
                return;
            }
        }
        if (run.ask([this] { begin(); })) {
            const auto outcome = runErase(*run.pedal, order_, {});
            keeping_.noteGone(outcome);
            run.ask([&] { finish(run, outcome); });
        }
    }

  private:
    /// Only slots that the question was about and that are still selected.
    bool start(Run& run) {
        std::erase_if(order_.slots,
                      [this](SlotNumber slot) { return !parts_.model.selection().contains(slot); });
        if (order_.slots.empty()) {
            return false;
        }
        parts_.presenter.endEditing();
        names_ = typedNames(parts_);
        std::erase_if(names_, [this](const auto& entry) {
            return std::ranges::find(order_.slots, entry.first) == order_.slots.end();
        });
        parts_.model.deselectAll();
        run.turn.cover();
        if (keeping_.plan(order_.slots, order_.seen)) {
            keeping_.begin(run);
        }
        return true;
    }

    void begin() {
        for (const auto slot : order_.slots) {
            parts_.listening.forget(slot);
        }
        work_ = parts_.teller.newWork();
        parts_.teller.working(work_, order_.slots.size() == 1
                                         ? words("Erasing %1\u2026", loopName(order_.slots.front()))
                                         : words("Erasing loops\u2026"));
        keeping_.end(work_);
    }

    /// A copy failed, or the user stopped it.
    void giveUp(Run& run, const Outcome& kept) {
        run.turn.end();
        if (!pedalIsGone(*kept.end)) {
            selectAgain(parts_, names_);
        }
        run.refresh();
        const auto without = [&parts = parts_, names = names_] {
            if (parts.flows->starting() || parts.flows->running()) {
                return false;
            }
            parts.presenter.noneSelected();
            parts.model.deselectAll();
            if (!selectAgain(parts, names)) {
                return false;
            }
            beginErase(parts, Copies::none);
            return true;
        };
        keeping_.tell(kept, "erase",
                      pedalIsGone(*kept.end) ? Remedy{} : Remedy{words("Erase without a copy"), without},
                      {order_.slots, order_.slots});
        keeping_.end();
    }

    void finish(Run& run, const Outcome& outcome) {
        run.end(outcome, [&] {
            if (!outcome.begun && !pedalIsGone(*outcome.end)) {
                selectAgain(parts_, names_);
            }
            run.refresh();
        });
        const Concern concern{order_.slots,
                              outcome.whole() ? std::vector<SlotNumber>() : notDone(outcome, order_.slots)};
        parts_.teller.forgetImports(concern);
        parts_.teller.tell(told(Deed::erase, outcome, order_.slots), "erase", {}, concern);
        parts_.teller.idle(work_);
    }

    AppParts& parts_;
    Keeping keeping_;
    EraseOrder order_;
    TypedNames names_;
    Teller::Work work_ = 0;
};

}  // namespace

void beginErase(AppParts& parts, Copies copies) {
    if (parts.flows->starting()) {
        return;
    }
    const auto& selection = parts.model.selection();
    parts.teller.beforeErase({selection.begin(), selection.end()}, copies == Copies::kept && parts.kept.on());
    auto turn = parts.flows->take();  // nothing while one is running, which is told only after the question
    const auto flow = [erase = std::make_shared<Erase>(parts, copies)](Run& run) { erase->work(run); };
    const auto answer = [&parts] {
        const OpenQuestions::Question open(parts.questions);
        return parts.environment.dialogs.run(yesOrNoAlertWithHeadline(
            words("Erased loop audio cannot be restored. Would you like to continue?")));
    }();
    if (answer != alertFirstButton) {
        return;
    }
    if (turn) {
        parts.flows->start(std::move(*turn), erasePatience, flow);
    } else {
        parts.flows->start(erasePatience, flow);
    }
}

}  // namespace kzq
