#include "app/import_flow.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "app/app_parts.h"
#include "app/select_again.h"
#include "app/set_up.h"
#include "app/show_folder.h"
#include "app/transfer_run.h"
#include "audio/wave.h"
#include "operations/import.h"
#include "operations/table.h"
#include "words/words.h"

namespace kzq {

namespace {

/// One import, from the press of the button on. Its parts are used on the main thread only.
class Import {
  public:
    explicit Import(AppParts& parts) : parts_(parts) {}

    void work(Run& run) {
        if (!run.idle()) {
            return;
        }
        const auto folder = run.ask([this] { return chosenFolder(); });
        if (!folder || folder->empty()) {
            return;
        }
        run.letPanelsClose();
        if (run.ask([&] { return start(run, *folder); }).value_or(false)) {
            const auto awake = run.keepAwake(AwakeFor::transfer);
            const auto outcome = runImport(*run.pedal, order_, events_);
            run.ask([&] { finish(run, outcome); });
        }
    }

  private:
    std::filesystem::path chosenFolder() {
        parts_.presenter.endEditing();
        const OpenQuestions::Question open(parts_.questions);
        const auto& loops = parts_.model.selection();
        const auto title = loops.size() == 1 ? words("Choose a folder for %1", loopName(*loops.begin()))
                                             : words(loops.size(), "Choose a folder for %n loop",
                                                     "Choose a folder for %n loops");
        const auto chosen = parts_.environment.dialogs.chooseFolder(title, words("Save"));
        return chosen.answer == panelOk || chosen.answer == panelContinue ? chosen.path
                                                                          : std::filesystem::path();
    }

    bool start(Run& run, const std::filesystem::path& folder) {
        const auto& selection = parts_.model.selection();
        std::uint64_t total = 0;
        for (const auto slot : selection) {
            const auto& row = parts_.rows.importRow(slot);
            const auto* const loop = parts_.model.table().find(slot);
            if (loop == nullptr) {
                return false;
            }
            total += row.bytes();
            order_.loops.push_back({slot, row.name().value_or(QString()).toStdString(), {loop->samples}});
        }
        names_ = typedNames(parts_);
        if (auto trouble = impossibleLength(parts_.model.table(), {selection.begin(), selection.end()})) {
            tell({.wanted = selection.size(), .end = std::move(trouble)});
            return false;
        }
        if (selection.empty()) {
            return false;
        }
        order_.folder = folder;
        order_.write = parts_.environment.writeFile;
        order_.freeSpace = parts_.environment.freeSpace;
        parts_.transferPanel.open(total, selection.size(), Slot::importContext);
        run.turn.cover();
        watch(run, parts_.transferPanel.follow(run.poster(), total));
        return true;
    }

    void watch(Run& run, const std::shared_ptr<TransferRun>& progress) {
        work_ = parts_.teller.newWork();
        auto follow = parts_.teller.follower(work_, run.poster(), english("Reading loop %1\u2026"));
        follow(order_.loops.front().slot);
        events_.moved = [progress, follow](SlotNumber slot, std::uint64_t bytes) mutable {
            follow(slot);
            progress->moved(bytes);
        };
        events_.slot = [progress, &presenter = parts_.presenter](const SlotOutcome& loop) {
            if (loop.did == SlotOutcome::Did::saved || loop.frames.count != 0) {  // it came
                progress->loopDone(waveHeaderSize + loop.frames.bytes(),
                                   [&presenter, slot = loop.slot] { presenter.saved(slot); });
            }
        };
    }

    void finish(Run& run, const Outcome& outcome) {
        run.end(outcome, [&] {
            parts_.transferPanel.close();
            if (outcome.begun) {
                parts_.presenter.noneSelected();
                parts_.model.deselectAll();
            }
        });
        tell(outcome);
    }

    void tell(const Outcome& outcome) {
        std::vector<SlotNumber> asked;
        std::ranges::transform(order_.loops, std::back_inserter(asked), &ImportOrder::Item::slot);
        const auto missing = notDone(outcome, asked);
        Loops loops;
        for (const auto& [slot, chosen] : names_) {
            if (chosen.pedal == parts_.model.pedal()) {
                loops.put(slot, chosen.loop);
            }
        }
        parts_.teller.imported(loops, missing);
        TypedNames again;
        for (const auto slot : missing) {
            again[slot] = names_[slot];
        }
        const Remedy retry{words("Try again"),
                           [this_ = &parts_, again] { return selectAgain(*this_, again); }};
        const auto* const trouble = mainTrouble(outcome);
        parts_.teller.tell(toldImport(outcome, asked, order_.folder), "import",
                           missing.empty()                      ? showing(parts_.environment, order_.folder)
                           : trouble && isMissingRule(*trouble) ? settingUp(parts_, *trouble, again)
                                                                : retry,
                           {asked, missing});
        parts_.teller.idle(work_);
    }

    AppParts& parts_;
    ImportOrder order_;
    TypedNames names_;  ///< as they were at the start
    Teller::Work work_ = 0;
    Events events_;
};

}  // namespace

void beginImport(AppParts& parts) {
    parts.flows->start(transferPatience,
                       [flow = std::make_shared<Import>(parts)](Run& run) { flow->work(run); });
}

}  // namespace kzq
