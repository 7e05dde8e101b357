#pragma once

#include <QUrl>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "loops/export_info.h"
#include "loops/slot_number.h"
#include "slots/slot.h"

namespace kzq {

/// The rows of the two tabs; entry i of each list is slot i + 1. Empty before the launch.
struct Rows {
    using List = std::vector<std::unique_ptr<Slot>>;

    List imports;
    List exports;

    /// Null for number 0, and for a row that is not there. Context 0 is the import list.
    Slot* find(std::uint8_t number, std::int32_t context) const {
        const auto& list = context == Slot::importContext ? imports : exports;
        return number == 0 || number > list.size() ? nullptr : list[number - 1U].get();
    }
    // After the launch there is a row for each slot.
    Slot& importRow(SlotNumber slot) const { return *imports.at(slot.number() - 1U); }
    Slot& exportRow(SlotNumber slot) const { return *exports.at(slot.number() - 1U); }
    /// The user's own files on the rows of what is staged.
    std::map<SlotNumber, QUrl> stagedFiles(const Exports& staged) const {
        std::map<SlotNumber, QUrl> files;
        for (const auto& [slot, info] : staged) {
            if (const auto& file = exportRow(slot).exporting()) {
                files.emplace(slot, *file);
            }
        }
        return files;
    }
};

/// The slot of a row: a row is never made for another number.
inline SlotNumber slotOf(const Slot& row) {
    return SlotNumber::of(row.number()).value();
}

}  // namespace kzq
