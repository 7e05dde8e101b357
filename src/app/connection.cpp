#include <QLabel>
#include <utility>

#include "app/app_delegate.h"
#include "app/main_window.h"
#include "device/kzq7306.h"
#include "loops/capacity.h"
#include "ui/lower_button.h"
#include "ui/mass_selection_button.h"
#include "ui/panels/about.h"
#include "ui/picture_view.h"
#include "ui/view_width.h"

namespace kzq {

namespace {

const Loop* loopIn(const Loops& loops, const Slot& slot) {
    return loops.find(slot.slot());
}

}  // namespace

void AppDelegate::looperIsConnected(KZQ7306& looper) {
    if (firmwareUpdater_) {
        firmwareUpdater_->check();
    }
    redrawAbout();
    selectedImportSlots_.clear();
    selectedExportSlots_.clear();
    setImportAndEraseEnabled(false);
    window_.selectAllButton()->setEnabled(true);
    window_.deselectAllButton()->setEnabled(true);
    emptyMeter();
    window_.showMeter(true);
    showNoTable();
    looper.loops([&executor = environment_.executor, weak = weak_from_this()](std::optional<Loops> loops) {
        executor.main([weak, loops = std::move(loops)] {
            if (const auto self = weak.lock()) {
                self->loopsArrived(loops);
            }
        });
    });
}

void AppDelegate::loopsArrived(const std::optional<Loops>& table) {
    if (window_.saysNoPedal()) {
        return;  // it left before the table arrived here
    }
    if (!table || !table->complete) {
        if (const auto looper = KZQ7306::looper()) {
            looper->refresh();
        }
        return;
    }
    const auto& loops = *table;
    shown_ = loops;
    for (const auto* const list : {&importSlots_, &exportSlots_}) {
        for (const auto& slot : *list) {
            const auto* const loop = loopIn(loops, *slot);
            slot->setOccupied(loop != nullptr);
            if (loop != nullptr) {
                slot->setSamples(loop->samples);
                slot->setBytes(loop->bytes);
                slot->setAlignedBytes(loop->alignedBytes);
            }
            slot->refresh();
        }
    }
    setMeterValueAndCaption(existingAndTeedUpExportSamples());
}

void AppDelegate::looperInternalStateChanged(const Status& status) {
    redrawAbout();
    if (window_.saysNoPedal()) {
        return;  // it left before the news arrived here
    }
    if (!status.loops.complete) {
        return;  // its gaps say nothing
    }
    shown_ = status.loops;
    const auto previous = std::exchange(selectedImportSlots_, {});
    setImportAndEraseEnabled(false);
    showImportState(status.loops, previous);
    window_.warning()->setVisible(showExportState(status.loops, previous));
    setMeterValueAndCaption(existingAndTeedUpExportSamples());
}

/// A selection survives for slots that still hold a loop.
void AppDelegate::showImportState(const Loops& loops, const std::set<SlotNumber>& selection) {
    for (const auto& slot : importSlots_) {
        const auto* const loop = loopIn(loops, *slot);
        slot->setOccupied(loop != nullptr);
        if (loop != nullptr) {
            slot->setSelected(selection.contains(slot->slot()));
            slot->setSamples(loop->samples);
            slot->setBytes(loop->bytes);
            slot->setAlignedBytes(loop->alignedBytes);
        }
        slot->refresh();
        if (loop != nullptr && selection.contains(slot->slot())) {
            selectedImportSlots_.insert(slot->slot());
            setImportAndEraseEnabled(true);
        }
    }
}

/// Whether something staged would overwrite a loop. The rows are selected as their import rows are, and keep
/// their padded size.
bool AppDelegate::showExportState(const Loops& loops, const std::set<SlotNumber>& selection) {
    bool overwrites = false;
    for (const auto& slot : exportSlots_) {
        const auto* const loop = loopIn(loops, *slot);
        const auto staged = selectedExportSlots_.find(slot->slot());
        const bool isStaged = staged != selectedExportSlots_.end();
        slot->setOccupied(loop != nullptr);
        if (loop != nullptr) {
            slot->setSelected(selection.contains(slot->slot()));
            slot->setSamples(loop->samples);
            slot->setBytes(loop->bytes);
        }
        slot->refresh();
        if (isStaged) {
            staged->second.occupied = loop != nullptr;
            overwrites = overwrites || staged->second.occupied;
        }
    }
    return overwrites;
}

void AppDelegate::looperHasBeenDisconnected() {
    if (run_) {
        run_->pedalLeft = true;
    }
    redrawAbout();
    showNoTable();
    selectedImportSlots_.clear();
    selectedExportSlots_.clear();
    setImportAndEraseEnabled(false);
    window_.selectAllButton()->setEnabled(false);
    window_.deselectAllButton()->setEnabled(false);
    window_.showMeter(false);
    emptyMeter();
    const auto empty = [](Slot& slot) {
        slot.setBytes(0);
        slot.setSamples(0);
        slot.setAlignedBytes(0);
        slot.refresh();
    };
    for (const auto& slot : importSlots_) {
        slot->setOccupied(false);
        slot->endEditing();
        slot->setCustomImportName(std::nullopt);
        empty(*slot);
    }
    for (const auto& slot : exportSlots_) {
        slot->setExporting(std::nullopt);
        slot->setExported(false);
        slot->setOccupied(false);
        empty(*slot);
    }
}

void AppDelegate::showNoTable() {
    shown_ = {};
    shown_.complete = false;
}

std::optional<Loop> AppDelegate::shownIn(SlotNumber slot) const {
    const auto* const loop = shown_.find(slot);
    return loop == nullptr ? std::nullopt : std::optional(*loop);
}

void AppDelegate::redrawAbout() {
    if (about_) {
        about_->setNeedsDisplay();
    }
}

void AppDelegate::emptyMeter() {
    setWidth(*window_.meter(), 0);
    window_.meterCaption()->setText(QString::fromStdString(meterCaption(0)));
}

void AppDelegate::setImportAndEraseEnabled(bool enabled) {
    window_.importButton()->setEnabled(enabled);
    window_.eraseButton()->setEnabled(enabled);
}

}  // namespace kzq
