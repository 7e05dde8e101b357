#include "app/erase_flow.h"

#include <map>
#include <optional>
#include <utility>

#include "app/app_parts.h"
#include "operations/erase.h"

namespace kzq {

namespace {

/// It cannot be cancelled.
constexpr Patience patience{.limit = std::chrono::seconds(30), .stops = true};

bool pedalIsGone(const Trouble& trouble) {
    return trouble.kind == Trouble::Kind::unplugged || trouble.kind == Trouble::Kind::silent;
}

/// One erase, from the press of the button on. Its parts are used on the main thread only.
class Erase {
  public:
    explicit Erase(AppParts& parts) : parts_(parts) {
        const auto& selection = parts.model.selection();
        order_ = {.slots = {selection.begin(), selection.end()}, .seen = parts.model.table(), .look = false};
    }

    void work(Run& run) {
        if (run.idle() && run.ask([&] { return start(run); }).value_or(false)) {
            const auto outcome = runErase(*run.pedal, order_, {});
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
        parts_.model.deselectAll();
        run.turn.cover();
        for (const auto slot : order_.slots) {
            names_[slot] = parts_.rows.importRow(slot).customImportName();
        }
        return true;
    }

    void finish(Run& run, const Outcome& outcome) {
        run.end(outcome, [&] {
            if (!outcome.begun && !pedalIsGone(*outcome.end)) {
                selectAgain();
            }
            run.refresh();
        });
        parts_.presenter.tell("erased", outcome);
    }

    /// Nothing has been done: loops that are still there are selected again and keep their names.
    void selectAgain() {
        for (const auto& [slot, name] : names_) {
            auto& row = parts_.rows.importRow(slot);
            if (row.occupied()) {
                row.setSelected(true);
                row.setCustomImportName(name);
                parts_.model.select(slot, true);
            }
        }
        parts_.presenter.selection();
    }

    AppParts& parts_;
    EraseOrder order_;
    std::map<SlotNumber, std::optional<QString>> names_;  ///< that were typed
};

}  // namespace

void beginErase(AppParts& parts) {
    if (parts.flows->starting()) {
        return;
    }
    auto turn = parts.flows->take();  // nothing while one is running, which is told only after the question
    const auto flow = [erase = std::make_shared<Erase>(parts)](Run& run) { erase->work(run); };
    const auto answer = parts.environment.dialogs.run(
        yesOrNoAlertWithHeadline("Erased loop audio cannot be restored. Would you like to continue?"));
    if (answer != alertFirstButton) {
        return;
    }
    if (turn) {
        parts.flows->start(std::move(*turn), patience, flow);
    } else {
        parts.flows->start(patience, flow);
    }
}

}  // namespace kzq
