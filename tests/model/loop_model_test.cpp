#include "app/model/loop_model.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include "loops/facts.h"

namespace kzq::test {

namespace {

using Staged = LoopModel::Staged;

/// What happened before, and a model to which anything happens next.
class Life {
  public:
    void next() {
        switch (*rc::gen::inRange(0, 10)) {
            case 0:
                model.reset();
                RC_ASSERT(!model.table().complete && model.selection().empty() && model.staging().empty());
                break;
            case 1:
            case 2:
            case 3:
                change(anyTable());
                break;
            case 4:
                arrive(anyTable());
                break;
            case 5:
                model.select(anySlot(), *rc::gen::arbitrary<bool>());
                break;
            case 6:
                model.selectAll();
                RC_ASSERT(model.selection().size() == model.table().size());
                break;
            case 7:
                model.unstage(anySlot());
                break;
            default:
                drop();
        }
        check();
    }

  private:
    static SlotNumber anySlot() { return SlotNumber::of(*rc::gen::inRange<std::uint64_t>(1, 6)).value(); }
    /// Often near the capacity.
    static std::uint32_t anyLength() {
        return *rc::gen::oneOf(rc::gen::inRange<std::uint32_t>(1, 20),
                               rc::gen::inRange<std::uint32_t>(capacityFrames / 3, capacityFrames));
    }
    static Loops anyTable() {
        Loops loops;
        const auto slots = *rc::gen::inRange(0, 4);
        for (int i = 0; i < slots; ++i) {
            const auto slot = anySlot();
            loops.put(slot, {.address = slot.address().wire(), .samples = anyLength()});
        }
        loops.complete = *rc::gen::inRange(0, 4) != 0;
        return loops;
    }

    void arrive(const Loops& loops) {
        const auto before = model;
        RC_ASSERT(model.arrived(loops) == loops.complete);
        RC_ASSERT(model.table() == (loops.complete ? loops : before.table()));
        RC_ASSERT(model.staging() == before.staging());
    }

    void change(const Loops& loops) {
        const auto before = model;
        const auto change = model.changed(loops);
        RC_ASSERT(change.has_value() == loops.complete);
        if (!change) {
            RC_ASSERT(model.table() == before.table() && model.selection() == before.selection() &&
                      model.staging() == before.staging());
            return;
        }
        RC_ASSERT(model.table() == loops);
        bool overwrites = false;
        for (const auto& [slot, info] : model.staging()) {
            RC_ASSERT(info.occupied == loops.contains(slot));
            overwrites = overwrites || info.occupied;
        }
        std::set<SlotNumber> kept;
        std::ranges::copy_if(before.selection(), std::inserter(kept, kept.end()),
                             [&](SlotNumber slot) { return loops.contains(slot); });
        RC_ASSERT(*change == (LoopModel::Change{kept, overwrites}));
        RC_ASSERT(model.selection() == kept);
        const auto& asked = before.staging();
        RC_ASSERT(model.stillAskedAbout(asked) == std::ranges::all_of(asked, [&](const auto& entry) {
                      return entry.second.occupied || !loops.contains(entry.first);
                  }));
    }

    /// Files that are converted in any order.
    void drop() {
        const auto slot = anySlot();
        const auto order =
            *rc::gen::inRange(0, 2) == 0 ? model.nextDrop() : *rc::gen::inRange<std::uint64_t>(1, 9);
        const auto info = exportInfoForLoop(slot.number(), model.table().contains(slot),
                                            std::to_string(++files), anyLength() * frameBytes);
        const auto before = model;
        const auto with = model.inUseWith(slot, Frames::ofBytes(info->bytes));
        const auto staged = model.stage(*info, order);
        const auto expected = order < newest[slot]           ? Staged::overtaken
                              : with.count >= capacityFrames ? Staged::tooLarge
                                                             : Staged::yes;
        RC_ASSERT(staged == expected);
        if (staged != Staged::yes) {
            RC_ASSERT(model.staging() == before.staging());
            return;
        }
        newest[slot] = order;
        RC_ASSERT(model.staging().at(slot) == *info);
        RC_ASSERT(model.inUse() == with);
        RC_ASSERT(!before.stillAskedAbout(model.staging()) || before.staging() == model.staging());
    }

    void check() const {
        std::uint64_t frames = 0;
        for (unsigned number = 1; number <= loopSlots; ++number) {
            const auto slot = *SlotNumber::of(number);
            const auto* const loop = model.table().find(slot);
            const auto staged = model.staging().find(slot);
            frames += staged != model.staging().end() ? staged->second.bytes / frameBytes
                      : loop != nullptr               ? loop->samples
                                                      : 0;
            RC_ASSERT(loop != nullptr || !model.selection().contains(slot));
        }
        RC_ASSERT(model.inUse().count == frames);
    }

    LoopModel model;
    std::map<SlotNumber, std::uint64_t> newest;
    int files = 0;
};

TEST(LoopModel, HoldsTogetherWhateverHappens) {
    rc::detail::checkGTest([] {
        Life life;
        const auto length = *rc::gen::inRange(1, 60);
        for (int step = 0; step < length; ++step) {
            life.next();
        }
    });
}

}  // namespace

}  // namespace kzq::test
