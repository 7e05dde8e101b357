#include "ctl/commands/export_plan.h"

#include <algorithm>
#include <system_error>

#include "loops/facts.h"

namespace kzq::ctl {

std::variant<std::vector<std::uint8_t>, Explanation> slotsForExport(std::size_t count,
                                                                    std::optional<std::uint8_t> first,
                                                                    const Loops& loops) {
    std::vector<std::uint8_t> slots;
    for (std::uint8_t slot = first.value_or(1); slot <= loopSlots && slots.size() < count; ++slot) {
        if (first || !loops.contains(slot)) {
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

std::vector<ExportInfo> inOrderOfGrowth(const Exports& exports, const Loops& loops) {
    const auto growth = [&loops](const ExportInfo& info) {
        const auto old = loops.find(info.destination);
        const auto frames = static_cast<std::int64_t>(info.bytes / frameBytes);
        return frames - (old == loops.end() ? 0 : std::int64_t{old->second.samples});
    };
    std::vector<ExportInfo> order;
    for (const auto& [slot, info] : exports) {
        order.push_back(info);
    }
    std::stable_sort(order.begin(), order.end(), [&growth](const ExportInfo& a, const ExportInfo& b) {
        return std::min<std::int64_t>(growth(a), 0) < std::min<std::int64_t>(growth(b), 0);
    });
    return order;
}

WorkingCopies::~WorkingCopies() {
    for (const auto& file : files_) {
        std::error_code error;
        std::filesystem::remove(file, error);
    }
}

}  // namespace kzq::ctl
