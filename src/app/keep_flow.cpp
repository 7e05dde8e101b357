#include "app/keep_flow.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "app/doubt.h"
#include "app/main_window.h"
#include "operations/table.h"
#include "words/words.h"

namespace kzq {

namespace {

/// How far the reading of all loops has come. The link's thread, and before that the run's.
class KeepProgress {
  public:
    using Showing = std::function<void(double fraction)>;

    KeepProgress(std::uint64_t total, Teller::Saying say, Showing show)
        : total_(total), say_(std::move(say)), show_(std::move(show)) {}

    void begins(SlotNumber slot, std::uint64_t before) {
        before_ = before;
        moved(slot, 0);
    }
    void moved(SlotNumber slot, std::uint64_t bytes) {
        const auto percent = total_ == 0 ? 0 : std::min<std::uint64_t>(100, (before_ + bytes) * 100 / total_);
        const auto quarter = percent / 25 * 25;
        if (std::exchange(shown_, percent) != percent) {
            show_(static_cast<double>(percent) / 100);
        }
        say_(words("Keeping a copy of %1\u2026 %2 %", loopName(slot), percent),
             quarter == 0 || quarter == 100 ? "" : words("Keeping copies, %1 percent", quarter));
    }

  private:
    const std::uint64_t total_;
    const Teller::Saying say_;
    const Showing show_;
    std::uint64_t before_ = 0;                           ///< of the loops that came
    std::optional<std::uint64_t> shown_ = std::nullopt;  ///< percent
};

}  // namespace

bool Keeping::plan(const std::vector<SlotNumber>& slots, const Loops& seen) {
    std::vector<SlotNumber> wanted;
    std::ranges::copy_if(slots, std::back_inserter(wanted), [&](auto slot) { return seen.contains(slot); });
    if (copies_ == Copies::kept && !wanted.empty() && parts_.kept.on() && !impossibleLength(seen, wanted)) {
        order_ = {.copies = parts_.kept,
                  .slots = std::move(wanted),
                  .seen = seen,
                  .before = before_,
                  .freeSpace = parts_.environment.freeSpace};
    }
    return planned();
}

void Keeping::begin(Run& run) {
    pedal_ = parts_.flows->makePedal(transferPatience);
    doubt_ = doubtOf(parts_.environment);
    const auto stop = [parts = &parts_] { parts->flows->cancel(); };
    work_ = parts_.teller.newWork({words("Stop"), [stop] {
                                       stop();
                                       return true;
                                   }});
    const auto onIcon = [post = run.poster(), &panel = parts_.transferPanel](double fraction) {
        post([&panel, fraction] { panel.showOnIcon(fraction); });
    };
    const auto progress = std::make_shared<KeepProgress>(
        bytesToRead(order_), parts_.teller.followerInWords(work_, run.poster()), onIcon);
    events_.begins = [progress, this, before = std::uint64_t{0}](SlotNumber slot, Step /*step*/) mutable {
        before = slot == order_.slots.front() ? 0 : before;  // they may be read a second time
        progress->begins(slot, before);
        before += order_.seen.find(slot)->alignedBytes;
    };
    events_.moved = [progress](SlotNumber slot, std::uint64_t bytes) { progress->moved(slot, bytes); };
    parts_.teller.working(work_, words("Keeping a copy of %1\u2026", loopName(order_.slots.front())));
    parts_.window.offerStop(stop);
}

struct Keeping::Round {
    Kept kept;
    bool still = true;    ///< nothing made its loops doubtful
    bool counts = false;  ///< but what may have been the pedal's own counting of the loops that it sent
    Doubt since = {};     ///< at its end

    bool hasAudioOf(const Round& other) const {
        return std::ranges::equal(kept.outcome.slots, other.kept.outcome.slots, {}, &SlotOutcome::digest,
                                  &SlotOutcome::digest);
    }
};

Keeping::Round Keeping::copy(Run& run) {
    const auto before = doubt_();
    Round round{.kept = runKeep(*pedal_, order_, events_)};
    if (round.kept.outcome.whole()) {
        const bool idle = run.saysIdle();
        round.since = doubt_();
        round.still = idle && round.since.isStill(before);
        round.counts = idle && round.since.pedal - before.pedal >= order_.slots.size();
    }
    return round;
}

Outcome Keeping::work(Run& run) {
    const auto awake = run.keepAwake(AwakeFor::transfer);
    run.saysIdle();  // what the user did before is of no concern
    auto round = copy(run);
    if (!round.still) {
        const auto first = std::move(round);
        round = copy(run);
        if (!round.still && !(first.counts && round.counts && round.hasAudioOf(first))) {
            round.kept.outcome.end = Trouble{Trouble::Kind::busy};
        }
    }
    run.pedal->guardNext([doubt = doubt_, since = round.since] { return doubt().isStill(since); });
    stamp_ = round.kept.stamp;
    return std::move(round.kept.outcome);
}

void Keeping::noteGone(const Outcome& operation) const {
    if (!stamp_.empty()) {
        order_.copies.noteGone(stamp_, seenGone(operation));
    }
}

void Keeping::end(Teller::Work rest) {
    parts_.window.offerStop({});
    parts_.transferPanel.showOnIcon(std::nullopt);
    parts_.teller.idle(work_, rest);
}

void Keeping::tell(const Outcome& kept, const std::string& job, Remedy without, const Concern& concern) {
    const auto told = toldNotKept(before_, kept);
    parts_.teller.tell(told, told.failure ? job : "", told.failure ? std::move(without) : Remedy{}, concern);
}

}  // namespace kzq
