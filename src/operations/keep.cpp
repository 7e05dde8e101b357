#include "operations/keep.h"

#include <memory>
#include <utility>

#include "audio/wave.h"
#include "operations/loop_file.h"
#include "operations/read_loop.h"
#include "operations/sentences.h"
#include "operations/snapshot_draft.h"
#include "words/words.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;
using Kind = Trouble::Kind;

class Keep {
  public:
    Keep(Pedal& pedal, const KeepOrder& order, const Events& events)
        : pedal_(pedal), order_(order), events_(events) {
        outcome_.wanted = order.slots.size();
    }

    Kept run() {
        outcome_.end = open();
        for (const auto slot : order_.slots) {
            if (outcome_.end) {
                break;
            }
            read(slot);
        }
        auto stamp = outcome_.end ? std::string() : finish();
        draft_.reset();  // what has no date now is removed
        order_.copies.tidy();
        return {std::move(outcome_), std::move(stamp)};
    }

  private:
    std::optional<Trouble> open() {
        order_.copies.tidy();
        const auto place = order_.copies.open();
        if (!place) {
            return place.error();
        }
        auto draft = SnapshotDraft::make(*place, order_.stamp(), SnapshotDraft::Shared::all);
        if (!draft) {
            return std::move(draft.error());
        }
        draft_ = std::move(*draft);
        draft_->setBefore(order_.before == Deed::erase ? "erase" : "replace");
        std::uint64_t size = 0;
        for (const auto slot : order_.slots) {
            const auto& loop = *order_.seen.find(slot);
            size += draft_->isFree(slot, loop) ? 0 : waveHeaderSize + loop.bytes;
        }
        return tooLittleSpace(place->path(), size, order_.freeSpace);
    }

    void read(SlotNumber slot) {
        const auto& loop = *order_.seen.find(slot);
        const auto image = readLoop(pedal_, slot, Step::read, events_, outcome_);
        if (!image) {
            return;
        }
        SlotOutcome outcome{.slot = slot, .frames = Frames{loop.samples}};
        if (!*image) {
            outcome.trouble = image->error();
        } else if (framesOf(**image) != loop.samples) {
            outcome.trouble = Trouble{Kind::changedWhileRead};
        } else if (const auto added = draft_->add(slot, loop, **image)) {
            outcome.did = *added == SnapshotDraft::Way::written ? Did::saved : Did::kept;
            outcome.digest = draft_->index().loops.at(slot).sha256;
        } else {
            outcome.trouble = added.error();
        }
        outcome_.end = outcome_.end ? outcome_.end : outcome.trouble;
        outcome_.add(events_, std::move(outcome));
    }

    std::string finish() {
        const auto link = pedal_.link();
        const auto finished = draft_->finish(link->version().value_or(""), order_.stamp());
        if (!finished) {
            outcome_.end = finished.error();
        }
        return finished ? finished->name : "";
    }

    Pedal& pedal_;
    const KeepOrder& order_;
    const Events& events_;
    std::unique_ptr<SnapshotDraft> draft_;
    Outcome outcome_;
};

}  // namespace

std::uint64_t bytesToRead(const KeepOrder& order) {
    std::uint64_t bytes = 0;
    for (const auto slot : order.slots) {
        bytes += order.seen.find(slot)->alignedBytes;
    }
    return bytes;
}

Kept runKeep(Pedal& pedal, const KeepOrder& order, const Events& events) {
    return Keep(pedal, order, events).run();
}

std::vector<SlotNumber> seenGone(const Outcome& operation) {
    std::vector<SlotNumber> gone;
    for (const auto& loop : operation.slots) {
        const bool seen = loop.did == Did::erased || loop.did == Did::written || loop.did == Did::compared;
        if (seen && !loop.trouble) {
            gone.push_back(loop.slot);
        }
    }
    return gone;
}

Told toldNotKept(Deed deed, const Outcome& kept) {
    const auto& trouble = *kept.end;
    Told result{.what = nothingDone(deed == Deed::erase ? Deed::erase : Deed::write)};
    const auto* const failed = kept.firstFailure();
    if (trouble.kind == Kind::cancelled) {
        result.why = words("stopped");
    } else if (trouble.kind == Kind::busy) {
        result.why = words("the pedal was in use while its loops were copied");
        result.detail = words("Stop it and try again.");
        result.failure = true;
    } else {
        const auto reason = reasonFor(Deed::save, trouble);
        result.why = failed == nullptr ? words("no copy was kept, %1", reason)
                                       : words("%1 was not copied, %2", loopNames({failed->slot}), reason);
        result.detail = adviceOn(trouble);
        result.failure = true;
    }
    return result;
}

}  // namespace kzq
