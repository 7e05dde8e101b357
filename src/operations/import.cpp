#include "operations/import.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "audio/wave.h"
#include "loops/facts.h"
#include "operations/read_loop.h"

namespace kzq {

namespace {

bool isPossible(const ImportOrder::Item& item) {
    return item.frames.count <= capacityFrames;
}

class Import {
  public:
    Import(Pedal& pedal, const ImportOrder& order, const Events& events)
        : pedal_(pedal), order_(order), events_(events) {
        outcome_.wanted = order.loops.size();
    }

    Outcome run() {
        outcome_.end = tooLittleSpace(order_.folder, sizeOfFiles(), order_.freeSpace);
        if (outcome_.end) {
            return std::move(outcome_);
        }
        if (order_.batches == Batches::one) {
            readAll();
        } else {
            readEach();
        }
        return std::move(outcome_);
    }

  private:
    std::uint64_t sizeOfFiles() const {
        std::uint64_t size = 0;
        for (const auto& item : order_.loops) {
            size += item.frames.count != 0 && isPossible(item) ? waveHeaderSize + item.frames.bytes() : 0;
        }
        return size;
    }

    void readAll() {
        std::vector<SlotNumber> slots;
        std::ranges::transform(order_.loops, std::back_inserter(slots), &ImportOrder::Item::slot);
        const auto end = pedal_.importLoops(
            slots, [this](SlotNumber slot, std::uint64_t bytes) { tell(events_.moved, slot, bytes); },
            [this](SlotNumber slot, Result<Bytes> image) { take(item(slot), std::move(image)); });
        outcome_.begun = pedal_.begun();
        if (!end) {
            outcome_.end = end.error();
        }
    }

    /// A file is written while the pedal is free, and before the next loop is asked for.
    void readEach() {
        for (const auto& item : order_.loops) {
            if (!isPossible(item)) {
                outcome_.add(events_,
                             {item.slot, SlotOutcome::Did::failed, Trouble{Trouble::Kind::tooLarge}});
                continue;
            }
            if (auto image = readLoop(pedal_, item.slot, Step::read, events_, outcome_)) {
                take(item, std::move(*image));
            }
            if (outcome_.end) {
                return;
            }
        }
    }

    void take(const ImportOrder::Item& item, Result<Bytes> image) {
        SlotOutcome outcome{item.slot};
        if (!image) {
            outcome.trouble = std::move(image.error());
        } else {
            outcome.frames = Frames::ofBytes(image->size() - waveHeaderSize);
            if (order_.exact && outcome.frames != item.frames) {
                outcome.trouble = Trouble{Trouble::Kind::changedWhileRead};
            } else {
                save(item, *image, outcome);
            }
        }
        outcome_.add(events_, std::move(outcome));
    }

    void save(const ImportOrder::Item& item, ByteView image, SlotOutcome& outcome) {
        auto file = order_.write(order_.folder, item.name, ".wav", image);
        if (file) {
            outcome.did = SlotOutcome::Did::saved;
            outcome.file = std::move(*file);
            return;
        }
        outcome.file = order_.folder;
        outcome.trouble = std::move(file.error());
        if (order_.batches == Batches::each) {
            outcome_.end = outcome.trouble;
        }
    }

    const ImportOrder::Item& item(SlotNumber slot) const {
        return *std::ranges::find(order_.loops, slot, &ImportOrder::Item::slot);
    }

    Pedal& pedal_;
    const ImportOrder& order_;
    const Events& events_;
    Outcome outcome_;
};

}  // namespace

Outcome runImport(Pedal& pedal, const ImportOrder& order, const Events& events) {
    return Import(pedal, order, events).run();
}

}  // namespace kzq
