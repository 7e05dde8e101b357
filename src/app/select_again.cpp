#include "app/select_again.h"

#include "app/app_parts.h"

namespace kzq {

TypedNames typedNames(const AppParts& parts) {
    TypedNames names;
    for (const auto slot : parts.model.selection()) {
        if (const auto* const loop = parts.model.table().find(slot)) {
            names[slot] = {*loop, parts.rows.importRow(slot).customImportName(), parts.model.pedal()};
        }
    }
    return names;
}

bool selectAgain(AppParts& parts, const TypedNames& loops) {
    bool any = false;
    for (const auto& [slot, chosen] : loops) {
        const auto& [loop, name, pedal] = chosen;
        const auto* const now = parts.model.table().find(slot);
        const bool same = pedal == parts.model.pedal() || (now != nullptr && *now == loop);
        auto& row = parts.rows.importRow(slot);
        if (row.occupied() && same) {
            row.setSelected(true);
            row.setCustomImportName(name);
            parts.model.select(slot, true);
            any = true;
        }
    }
    parts.presenter.selection();
    return any;
}

}  // namespace kzq
