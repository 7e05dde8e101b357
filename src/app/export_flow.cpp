#include "app/export_flow.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <ranges>
#include <system_error>

#include "app/app_parts.h"
#include "app/keep_flow.h"
#include "app/transfer_run.h"
#include "app/verify_flow.h"
#include "audio/wave.h"
#include "operations/export.h"
#include "words/words.h"

namespace kzq {

namespace {

/// What the progress panel counts: the header is subtracted twice, so the last fraction may exceed 1.
std::uint64_t shownTotal(const Exports& exports) {
    std::uint64_t total = 0;
    for (const auto& [slot, info] : exports) {
        total += info.bytes >= waveHeaderSize ? info.bytes - waveHeaderSize : 0;
    }
    return total;
}

bool overwrites(const Exports& exports) {
    return std::ranges::any_of(exports, [](const auto& entry) { return entry.second.occupied; });
}

/// One export, from the press of the button on. Its parts are used on the main thread only.
class Export {
  public:
    Export(AppParts& parts, Copies copies) : parts_(parts), keeping_(parts, Deed::write, copies) {}

    void work(Run& run) {
        if (!run.idle()) {
            return;
        }
        run.letPanelsClose();
        if (!run.ask([&] { return start(run); }).value_or(false)) {
            return;
        }
        if (keeping_.planned()) {
            const auto kept = keeping_.work(run);
            if (!kept.whole()) {
                run.ask([&] { giveUp(run, kept); });
                return;
            }
        }
        if (!keeping_.planned() || run.ask([&] { begin(run); })) {
            const auto awake = run.keepAwake(AwakeFor::transfer);
            const auto outcome = runExport(*run.pedal, order_, events_);
            keeping_.noteGone(outcome);
            run.ask([&] { finish(run, outcome); });
        }
    }

  private:
    bool start(Run& run) {
        order_.exports = parts_.model.staging();
        order_.verify = parts_.verifyAfterExport;
        files_ = parts_.rows.stagedFiles(order_.exports);
        for (const auto& [slot, info] : order_.exports) {
            if (const auto* const loop = parts_.model.table().find(slot); loop != nullptr && info.occupied) {
                order_.seen.put(slot, *loop);
            }
        }
        if (order_.exports.empty()) {
            return false;
        }
        pedal_ = parts_.model.pedal();
        parts_.staging->setUnderWay(order_.exports);
        if (!agreed()) {
            parts_.staging->setUnderWay({});
            return false;
        }
        if (keeping_.plan(slotsOf(order_.exports), order_.seen)) {
            run.turn.cover();
            keeping_.begin(run);
        } else {
            begin(run);
            run.turn.cover();
        }
        return true;
    }

    void begin(Run& run) {
        const auto total = shownTotal(order_.exports);
        parts_.transferPanel.open(total, order_.exports.size(), Slot::exportContext);
        for (const auto& [slot, info] : order_.exports) {
            parts_.listening.forget(slot);
        }
        watch(run, parts_.transferPanel.follow(run.poster(), total));
        keeping_.end(work_);
    }

    /// A copy failed, or the user stopped it. All of it is still staged, unless the pedal has left.
    void giveUp(Run& run, const Outcome& kept) {
        run.turn.end();
        run.refresh();
        parts_.staging->setUnderWay({});
        const auto asked = slotsOf(order_.exports);
        const auto without = [&parts = parts_] {
            const bool can =
                !parts.flows->starting() && !parts.flows->running() && !parts.model.staging().empty();
            if (can) {
                beginExport(parts, Copies::none);
            }
            return can;
        };
        keeping_.tell(kept, "export",
                      pedal_ == parts_.model.pedal() ? Remedy{words("Replace without a copy"), without}
                                                     : parts_.staging->stagingAgain(files_),
                      {asked, asked});
        keeping_.end();
    }

    /// Whether the user agrees to overwrite loops, if any, and was asked about what is still so.
    bool agreed() {
        if (!overwrites(order_.exports)) {
            return true;
        }
        const Staging::Hold hold(parts_.staging);
        const auto answer = parts_.environment.dialogs.run(yesOrNoAlertWithHeadline(words(
            "Overwriting loop slots will erase audio on the 7306. Erased audio cannot be restored. Would "
            "you like to continue?")));
        const bool gone = pedal_ != parts_.model.pedal();
        if (answer != alertFirstButton && !gone) {
            return false;
        }
        // with the pedal, what was staged has gone too, and this says so after either answer
        const bool asked = !gone && parts_.model.stillAskedAbout(order_.exports);
        if (!asked) {
            tell({.wanted = order_.exports.size(),
                  .end = Trouble{Trouble::Kind::changed, words("what is staged")}});
        }
        return asked;
    }

    /// A loop that failed also counts as sent: the loop table is read again at the end.
    void watch(Run& run, const std::shared_ptr<TransferRun>& progress) {
        work_ = parts_.teller.newWork();
        auto follow = parts_.teller.follower(work_, run.poster(), english("Writing loop %1\u2026"));
        follow(order_.exports.begin()->first);
        events_.moved = [progress, follow](SlotNumber slot, std::uint64_t bytes) mutable {
            follow(slot);
            progress->moved(bytes);
        };
        events_.slot = [progress, &presenter = parts_.presenter](const SlotOutcome& loop) {
            progress->loopDone(loop.frames.bytes(), [&presenter, slot = loop.slot] { presenter.sent(slot); });
        };
    }

    void finish(Run& run, const Outcome& outcome) {
        run.end(outcome, [&] {
            parts_.transferPanel.close();
            if (outcome.begun) {
                parts_.model.sent();
                parts_.presenter.exportsCleared();
            }
            run.refresh();
        });
        parts_.staging->setUnderWay({});
        if (outcome.begun) {
            for (const auto& [slot, info] : order_.exports) {
                std::error_code ignored;
                std::filesystem::remove(info.source, ignored);
            }
        }
        tell(outcome);
        std::vector<SlotOutcome> written;
        std::ranges::copy_if(outcome.slots, std::back_inserter(written),
                             [](const SlotOutcome& loop) { return loop.did == SlotOutcome::Did::written; });
        for (const auto& loop : written) {
            parts_.unusedFiles.written(loop.slot);
        }
        if (order_.verify) {
            beginVerify(parts_, written, files_, pedal_);
        }
    }

    void tell(const Outcome& outcome) {
        const auto asked = slotsOf(order_.exports);
        const auto missing = notDone(outcome, asked);
        parts_.teller.forgetImports({asked, missing});
        std::map<SlotNumber, QUrl> again;
        for (const auto slot : missing) {
            if (const auto file = files_.find(slot); file != files_.end()) {
                again.insert(*file);
            }
        }
        // what has not begun is still staged, unless the pedal has left
        const bool offer = !again.empty() && (outcome.begun || pedal_ != parts_.model.pedal());
        parts_.teller.tell(told(Deed::write, outcome, asked), "export",
                           offer ? parts_.staging->stagingAgain(again) : Remedy{}, {asked, missing});
        parts_.teller.idle(work_);
    }

    AppParts& parts_;
    Keeping keeping_;
    ExportOrder order_;
    std::map<SlotNumber, QUrl> files_;  ///< the user's own
    unsigned pedal_ = 0;                ///< see LoopModel
    Teller::Work work_ = 0;
    Events events_;
};

}  // namespace

void beginExport(AppParts& parts, Copies copies) {
    parts.flows->start(transferPatience,
                       [flow = std::make_shared<Export>(parts, copies)](Run& run) { flow->work(run); });
}

}  // namespace kzq
