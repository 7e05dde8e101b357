#include "app/select_again.h"

#include "app/app_parts.h"

namespace kzq {

TypedNames typedNames(const AppParts& parts) {
    TypedNames names;
    for (const auto slot : parts.model.selection()) {
        names[slot] = parts.rows.importRow(slot).customImportName();
    }
    return names;
}

bool selectAgain(AppParts& parts, const TypedNames& loops) {
    bool any = false;
    for (const auto& [slot, name] : loops) {
        auto& row = parts.rows.importRow(slot);
        if (row.occupied()) {
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
