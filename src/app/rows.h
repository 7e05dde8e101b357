#pragma once

#include <QUrl>
#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include "loops/export_info.h"
#include "loops/slot_number.h"
#include "slots/row_grid.h"
#include "slots/slot.h"

namespace kzq {

/// The rows of the two tabs; entry i of each list is slot i + 1. Empty before the launch.
struct Rows {
    using List = std::vector<std::unique_ptr<Slot>>;

    List imports;
    List exports;
    std::unique_ptr<RowGrid> importGrid;
    std::unique_ptr<RowGrid> exportGrid;

    /// All of them change, and assistive technology hears of it at the end.
    std::vector<std::unique_ptr<RowChange>> changing() const {
        std::vector<std::unique_ptr<RowChange>> changes;
        for (const auto* const list : {&imports, &exports}) {
            for (const auto& row : *list) {
                changes.push_back(std::make_unique<RowChange>(*row));
            }
        }
        return changes;
    }
    /// The arrow keys walk the rows from now on, and Tab stops at one of each list.
    void watchKeys() {
        const auto grid = [](const List& list) {
            RowGrid::Rows rows;
            for (const auto& row : list) {
                rows.push_back(row.get());
            }
            return std::make_unique<RowGrid>(std::move(rows));
        };
        importGrid = grid(imports);
        exportGrid = grid(exports);
    }
    /// The row that has the keyboard focus, or whose name is being edited, on the tab that shows; also while
    /// a menu has taken the keys. Null for none.
    Slot* focused() const {
        for (const auto* const grid : {importGrid.get(), exportGrid.get()}) {
            if (auto* const row = grid != nullptr ? grid->focused() : nullptr) {
                return row;
            }
        }
        return nullptr;
    }

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
