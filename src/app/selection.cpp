#include "app/app_delegate.h"
#include "app/main_window.h"
#include "ui/lower_button.h"

namespace kzq {

void AppDelegate::endEditing() {
    for (const auto& slot : importSlots_) {
        slot->endEditing();
    }
}

void AppDelegate::selectAll() {
    selectedImportSlots_.clear();
    for (const auto& slot : importSlots_) {
        if (slot->occupied()) {
            slot->setSelected(true);
            selectedImportSlots_.insert(slot->slot());
        }
    }
    if (!selectedImportSlots_.empty()) {
        setImportAndEraseEnabled(true);
    }
}

void AppDelegate::deselectAll() {
    for (const auto& slot : importSlots_) {
        if (slot->occupied()) {
            slot->endEditing();
            slot->setSelected(false);
        }
    }
    selectedImportSlots_.clear();
    setImportAndEraseEnabled(false);
}

void AppDelegate::deselectAllExportSlots() {
    selectedExportSlots_.clear();
    window_.exportButton()->setEnabled(false);
    for (const auto& slot : exportSlots_) {
        slot->setExporting(std::nullopt);
        slot->setExported(false);
    }
    window_.warning()->hide();
}

}  // namespace kzq
