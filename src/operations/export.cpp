#include "operations/export.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ranges>
#include <span>
#include <system_error>
#include <utility>

#include "loops/capacity.h"
#include "operations/loop_file.h"
#include "operations/read_loop.h"
#include "operations/table.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;

/// Brings a working copy into memory, so that no disk is waited for between the reading of the pedal's table
/// and the first byte that overwrites a loop.
void readAhead(const std::filesystem::path& copy) {
    constexpr std::size_t piece = 1U << 20U;
    std::error_code ignored;
    if (std::filesystem::is_regular_file(copy, ignored)) {
        std::vector<char> bytes(piece);
        std::ifstream file(copy, std::ios::binary);
        while (file.read(bytes.data(), piece)) {
        }
    }
}

/// Whether a loop that failed like this had been announced, so that the pedal may have freed the slot.
bool mayBeEmpty(const SlotOutcome& outcome) {
    const auto kind = outcome.trouble ? outcome.trouble->kind : Trouble::Kind::noPedal;
    return kind == Trouble::Kind::transferFailed || kind == Trouble::Kind::cancelled;
}

class Export {
  public:
    Export(Pedal& pedal, const ExportOrder& order, const Events& events)
        : pedal_(pedal), order_(order), events_(events), exports_(order.exports), digests_(order.digests) {
        outcome_.wanted = order.exports.size();
    }

    Outcome run() {
        if (order_.batches == Batches::one) {
            writeAll();
        } else {
            writeEach();
        }
        return std::move(outcome_);
    }

  private:
    void writeAll() {
        auto exports = takenUp(order_.exports);
        if (exports.empty() || !check(exports, exports)) {
            return;
        }
        send(exports, [this](SlotNumber slot, const Result<Frames>& sent) {
            outcome_.add(events_, outcomeOf(slot, sent));
        });
        if (!outcome_.end) {
            confirm(outcome_.slots);
            return;
        }
        const auto cut = std::ranges::find_if(outcome_.slots, mayBeEmpty);
        if (cut != outcome_.slots.end()) {
            outcome_.doubt = *cut;
        }
    }

    void writeEach() {
        auto waiting = order_.exports;
        for (const auto slot : inOrderOfGrowth(order_.exports, order_.seen)) {
            auto next = takenUp({{slot, order_.exports.at(slot)}});
            if (!next.empty() && !check(next, waiting)) {
                return;
            }
            waiting.erase(slot);
            if (!next.empty()) {
                write(slot, next);
            }
            if (outcome_.end) {
                return;
            }
        }
    }

    /// Whether `next` may be written, while all of `waiting` must still be as the user saw it. Sets what the
    /// pedal is told of the slots.
    bool check(Exports& next, const Exports& waiting) {
        const auto now = unchangedTable(pedal_, order_.seen, slotsOf(waiting), order_.untouched);
        outcome_.end = now ? impossibleLength(*now, allSlots()) : std::optional(now.error());
        if (!outcome_.end && !fits(existingAndTeedUpExportSamples(*now, exports_))) {
            outcome_.end = Trouble{Trouble::Kind::noRoom};
        }
        for (auto& [slot, info] : next) {
            info.occupied = now && now->contains(slot);
        }
        return !outcome_.end;
    }

    bool fits(std::uint64_t frames) const {
        return fitsCapacity(frames) || (order_.full && frames == capacityFrames);
    }

    /// Without those that are not what they were: these come to nothing.
    Exports takenUp(Exports exports) {
        std::erase_if(exports, [this](const auto& entry) {
            const bool damaged = !takeUp(entry.first, entry.second);
            if (damaged) {
                exports_.erase(entry.first);
                outcome_.add(events_, {.slot = entry.first,
                                       .trouble = Trouble{Trouble::Kind::damaged, entry.second.source}});
            }
            return damaged;
        });
        return exports;
    }

    /// Reads all of it. Whether it has the digest that is known.
    bool takeUp(SlotNumber slot, const ExportInfo& info) {
        if (const auto known = order_.digests.find(slot); known != order_.digests.end()) {
            return isLoopFile(info.source, Frames::ofBytes(info.bytes).count, known->second);
        }
        if (order_.verify) {
            digests_[slot] = audioDigest(info.source);
        } else {
            readAhead(info.source);
        }
        return true;
    }

    void send(const Exports& exports, const Pedal::Sent& sent) {
        const auto end = pedal_.exportLoops(
            exports, [this](SlotNumber slot, std::uint64_t bytes) { tell(events_.moved, slot, bytes); },
            sent);
        outcome_.begun = outcome_.begun || pedal_.begun();
        if (!end) {
            outcome_.end = end.error();
        }
    }

    SlotOutcome outcomeOf(SlotNumber slot, const Result<Frames>& sent) const {
        if (!sent) {
            return {.slot = slot, .trouble = sent.error()};
        }
        const auto digest = digests_.find(slot);
        return {.slot = slot,
                .did = Did::sent,
                .frames = *sent,
                .digest = digest == digests_.end() ? "" : digest->second};
    }

    void write(SlotNumber slot, const Exports& next) {
        tell(events_.begins, slot, Step::write);
        std::optional<Result<Frames>> sent;
        send(next, [&sent](SlotNumber /*slot*/, const Result<Frames>& result) { sent = result; });
        if (outcome_.end && !(sent && *sent)) {
            if (pedal_.begun()) {
                outcome_.doubt = SlotOutcome{slot};
            }
            return;
        }
        auto outcome = outcomeOf(slot, sent.value_or(Trouble{Trouble::Kind::noAnswer}));
        if (!outcome.trouble && !(order_.verify ? readBack(pedal_, outcome, events_, outcome_)
                                                : confirm(std::span(&outcome, 1)))) {
            outcome_.doubt = outcome;
            return;
        }
        outcome_.add(events_, std::move(outcome));
    }

    /// The pedal's own table has the last word on what was sent. False if it cannot be asked.
    bool confirm(std::span<SlotOutcome> loops) {
        const auto status = pedal_.status();
        if (!status) {
            outcome_.end = status.error();
            return false;
        }
        for (auto& loop : loops) {
            const auto* const held = status->loops.find(loop.slot);
            if (loop.did == Did::sent && held != nullptr && held->samples == loop.frames.count) {
                loop.did = Did::written;
            } else if (loop.did == Did::sent) {
                loop.trouble = Trouble{Trouble::Kind::shortLoop};
            }
        }
        return true;
    }

    Pedal& pedal_;
    const ExportOrder& order_;
    const Events& events_;
    Exports exports_;  ///< that are not damaged, as far as is known
    std::map<SlotNumber, std::string> digests_;
    Outcome outcome_;
};

}  // namespace

Outcome runExport(Pedal& pedal, const ExportOrder& order, const Events& events) {
    return Export(pedal, order, events).run();
}

std::vector<SlotNumber> inOrderOfGrowth(const Exports& exports, const Loops& loops) {
    const auto growth = [&](SlotNumber slot) {
        const auto* const old = loops.find(slot);
        const auto frames = static_cast<std::int64_t>(Frames::ofBytes(exports.at(slot).bytes).count);
        return frames - (old == nullptr ? 0 : std::int64_t{old->samples});
    };
    auto order = slotsOf(exports);
    std::ranges::stable_sort(order, {},
                             [&growth](SlotNumber slot) { return std::min<std::int64_t>(growth(slot), 0); });
    return order;
}

}  // namespace kzq
