// The editing of a row's name: at most one row of each list is in editing mode.

#include <QtGlobal>

#include "slots/slot.h"
#include "slots/slot_field_editor.h"

namespace kzq {

namespace {

std::uint8_t importSlotInEditingMode = 0;
std::uint8_t exportSlotInEditingMode = 0;

}  // namespace

std::uint8_t Slot::currentImportSlotInEditingMode() {
    return importSlotInEditingMode;
}

std::uint8_t Slot::currentExportSlotInEditingMode() {
    return exportSlotInEditingMode;
}

void Slot::endEditing() {
    if (field_ != nullptr) {
        field_->endEditing();
    }
}

void Slot::controlTextDidBeginEditing() {
    auto& recorded = isExport() ? exportSlotInEditingMode : importSlotInEditingMode;
    if (delegate_ != nullptr) {
        auto* const previous = delegate_->slotNumber(recorded, isExport() ? exportContext : importContext);
        // The record outlives the editing, so it may name this row.
        if (previous != nullptr && previous != this && previous->field() != nullptr) {
            previous->field()->setEditable(false);
        }
    }
    recorded = number_;
    if (!isExport()) {
        showBackground(QString::fromLatin1("Import_field_rename"));
        field_->setTextColour(Qt::black);
    }
    if (delegate_ != nullptr) {
        delegate_->nameEditingBeganForSlot(*this);
    }
}

void Slot::controlTextDidEndEditing() {
    field_->setEditable(false);
    sync();
}

}  // namespace kzq
