#include "operations/export.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ranges>
#include <system_error>
#include <utility>

#include "loops/capacity.h"
#include "operations/read_loop.h"
#include "operations/table.h"

namespace kzq {

namespace {

using Did = SlotOutcome::Did;

/// Brings working copies into memory, so that no disk is waited for between the reading of the pedal's table
/// and the first byte that overwrites a loop.
void readAhead(const Exports& exports) {
    constexpr std::size_t piece = 1U << 20U;
    std::vector<char> bytes(piece);
    for (const auto& [slot, info] : exports) {
        std::error_code ignored;
        if (std::filesystem::is_regular_file(info.source, ignored)) {
            std::ifstream file(info.source, std::ios::binary);
            while (file.read(bytes.data(), piece)) {
            }
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
        : pedal_(pedal), order_(order), events_(events) {
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
        auto exports = order_.exports;
        if (!check(exports, exports)) {
            return;
        }
        send(exports, [this](SlotNumber slot, const Result<Frames>& sent) {
            outcome_.add(events_, outcomeOf(slot, sent));
        });
        const auto cut = std::ranges::find_if(outcome_.slots, mayBeEmpty);
        if (outcome_.end && cut != outcome_.slots.end()) {
            outcome_.doubt = *cut;
        }
    }

    void writeEach() {
        auto waiting = order_.exports;
        for (const auto slot : inOrderOfGrowth(order_.exports, order_.seen)) {
            Exports next = {{slot, order_.exports.at(slot)}};
            if (!check(next, waiting)) {
                return;
            }
            waiting.erase(slot);
            write(slot, next);
            if (outcome_.end) {
                return;
            }
        }
    }

    /// Whether `next` may be written, while all of `waiting` must still be as the user saw it. Sets what the
    /// pedal is told of the slots.
    bool check(Exports& next, const Exports& waiting) {
        readAhead(next);
        std::vector<SlotNumber> slots;
        std::ranges::copy(std::views::keys(waiting), std::back_inserter(slots));
        const auto now = unchangedTable(pedal_, order_.seen, slots, order_.untouched);
        outcome_.end = now ? impossibleLength(*now, allSlots()) : std::optional(now.error());
        if (!outcome_.end && !fitsCapacity(existingAndTeedUpExportSamples(*now, order_.exports))) {
            outcome_.end = Trouble{Trouble::Kind::noRoom};
        }
        for (auto& [slot, info] : next) {
            info.occupied = now && now->contains(slot);
        }
        return !outcome_.end;
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

    static SlotOutcome outcomeOf(SlotNumber slot, const Result<Frames>& sent) {
        return sent ? SlotOutcome{.slot = slot, .did = Did::written, .frames = *sent}
                    : SlotOutcome{.slot = slot, .trouble = sent.error()};
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
        if (!outcome.trouble && !(order_.same ? compare(next.at(slot), outcome) : confirm(outcome))) {
            outcome_.doubt = outcome;
            return;
        }
        outcome_.add(events_, std::move(outcome));
    }

    /// The pedal's own table has the last word. False if it cannot be asked.
    bool confirm(SlotOutcome& outcome) {
        const auto status = pedal_.status();
        if (!status) {
            outcome_.end = status.error();
            return false;
        }
        const auto* const loop = status->loops.find(outcome.slot);
        if (loop == nullptr || loop->samples != outcome.frames.count) {
            outcome.trouble = Trouble{Trouble::Kind::shortLoop};
        }
        return true;
    }

    bool compare(const ExportInfo& info, SlotOutcome& outcome) {
        auto image = readLoop(pedal_, outcome.slot, Step::compare, events_, outcome_);
        if (!image) {
            return false;
        }
        if (!*image) {
            outcome.trouble = std::move(image->error());
        } else if (!order_.same(info, **image)) {
            outcome.trouble = Trouble{Trouble::Kind::differs};
        } else {
            outcome.did = Did::compared;
        }
        return true;
    }

    Pedal& pedal_;
    const ExportOrder& order_;
    const Events& events_;
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
    std::vector<SlotNumber> order;
    std::ranges::copy(std::views::keys(exports), std::back_inserter(order));
    std::ranges::stable_sort(order, {},
                             [&growth](SlotNumber slot) { return std::min<std::int64_t>(growth(slot), 0); });
    return order;
}

}  // namespace kzq
