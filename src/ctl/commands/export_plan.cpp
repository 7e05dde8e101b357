#include "ctl/commands/export_plan.h"

#include <algorithm>
#include <iterator>
#include <ranges>
#include <system_error>

#include "loops/frames.h"

namespace kzq::ctl {

std::variant<std::vector<SlotNumber>, Explanation> slotsForExport(std::size_t count,
                                                                  std::optional<SlotNumber> first,
                                                                  const Loops& loops) {
    std::vector<SlotNumber> slots;
    for (const auto slot : allSlots()) {
        if (slots.size() < count && (first ? slot >= *first : !loops.contains(slot))) {
            slots.push_back(slot);
        }
    }
    if (slots.size() == count) {
        return slots;
    }
    const std::string have = slots.empty() ? "no free slot"
                                           : "only " + std::to_string(slots.size()) +
                                                 (slots.size() == 1 ? " free slot" : " free slots");
    return Explanation{ExitCode::pedalRefused,
                       "The pedal has " + have + " for " +
                           (count == 1 ? "the file" : std::to_string(count) + " files") +
                           ". Erase loops, or choose slots to overwrite with --slot."};
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

WorkingCopies::~WorkingCopies() {
    for (const auto& file : files_) {
        std::error_code error;
        std::filesystem::remove(file, error);
    }
}

}  // namespace kzq::ctl
