#include "ctl/commands/export_plan.h"

#include <system_error>

namespace kzq::ctl {

Result<std::vector<SlotNumber>> slotsForExport(std::size_t count, std::optional<SlotNumber> first,
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
    return Trouble{Trouble::Kind::noFreeSlots,
                   {},
                   0,
                   have + " for " + (count == 1 ? "the file" : std::to_string(count) + " files")};
}

WorkingCopies::~WorkingCopies() {
    for (const auto& file : files_) {
        std::error_code error;
        std::filesystem::remove(file, error);
    }
}

}  // namespace kzq::ctl
