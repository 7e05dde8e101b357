#include "app/verify_flow.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "app/app_parts.h"
#include "operations/verify.h"
#include "words/words.h"

namespace kzq {

namespace {

/// One run, from the end of its export on. Its parts are used on the main thread only.
class Verify {
  public:
    Verify(AppParts& parts, std::vector<SlotOutcome> written, std::map<SlotNumber, QUrl> files,
           unsigned pedal)
        : parts_(parts), written_(std::move(written)), files_(std::move(files)), pedal_(pedal) {}

    void work(Run& run) {
        if (run.pedal && run.ask([&] { return start(run); }).value_or(false)) {
            const auto awake = run.keepAwake(AwakeFor::transfer);
            const auto outcome = runVerify(*run.pedal, written_, events_);
            run.ask([&] { finish(run, outcome); });
        }
    }

  private:
    bool start(Run& run) {
        if (pedal_ != parts_.model.pedal()) {
            finish(run, {.wanted = written_.size(), .end = Trouble{Trouble::Kind::unplugged}});
            return false;
        }
        work_ = parts_.teller.newWork({words("Stop"), [this_ = &parts_] {
                                           this_->flows->cancel();
                                           return true;
                                       }});
        auto follow = parts_.teller.follower(work_, run.poster(), english("Verifying loop %1\u2026"));
        follow(written_.front().slot);
        events_.begins = [follow](SlotNumber slot, Step /*step*/) mutable { follow(slot); };
        events_.moved = [follow](SlotNumber slot, std::uint64_t /*bytes*/) mutable { follow(slot); };
        return true;
    }

    void finish(Run& run, const Outcome& outcome) {
        run.turn.end();
        std::vector<SlotNumber> asked;
        std::ranges::transform(written_, std::back_inserter(asked), &SlotOutcome::slot);
        std::map<SlotNumber, QUrl> again;
        for (const auto& loop : outcome.slots) {
            const auto file = files_.find(loop.slot);
            if (loop.trouble && loop.trouble->kind == Trouble::Kind::differs && file != files_.end()) {
                again.insert(*file);
            }
        }
        const auto told = toldVerify(outcome, asked);
        const bool judged = told.failure || outcome.whole();  // one that was stopped settles nothing
        parts_.teller.tell(told, judged ? "verify" : "",
                           again.empty() ? Remedy{} : parts_.staging->stagingAgain(std::move(again)));
        parts_.teller.idle(work_);  // only now: what came before is not shown again in between
    }

    AppParts& parts_;
    const std::vector<SlotOutcome> written_;
    const std::map<SlotNumber, QUrl> files_;  ///< the user's own
    const unsigned pedal_;
    Teller::Work work_ = 0;
    Events events_;
};

}  // namespace

void beginVerify(AppParts& parts, const std::vector<SlotOutcome>& written,
                 const std::map<SlotNumber, QUrl>& files, unsigned pedal) {
    if (auto turn = parts.flows->take(); turn && !written.empty()) {
        turn->occupy();
        parts.flows->start(
            std::move(*turn), transferPatience,
            [flow = std::make_shared<Verify>(parts, written, files, pedal)](Run& run) { flow->work(run); });
    }
}

}  // namespace kzq
