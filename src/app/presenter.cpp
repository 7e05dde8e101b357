#include "app/presenter.h"

#include <algorithm>

#include "app/main_window.h"
#include "loops/capacity.h"
#include "loops/facts.h"
#include "loops/spoken_length.h"
#include "ui/fitted_label.h"
#include "ui/panels/about.h"
#include "ui/qt_words.h"
#include "ui/view_width.h"

namespace kzq {

void Presenter::redrawAbout() {
    if (about_) {
        about_->setNeedsDisplay();
    }
}

void Presenter::connected() {
    enableImportAndErase(false);
    enableSelectButtons(true);
    emptyMeter();
    window_.showMeter(true);
}

/// All but the padded size, which only some transitions bring.
void Presenter::hold(Slot& row, const Loop* loop) {
    row.setOccupied(loop != nullptr);
    if (loop != nullptr) {
        row.setSamples(loop->samples);
        row.setBytes(loop->bytes);
    }
}

void Presenter::length(SlotNumber slot) {
    const auto* const loop = model_.table().find(slot);
    const Frames onPedal{loop != nullptr ? loop->samples : 0};
    const unsigned tempo = loop != nullptr ? loop->tempo : 0;
    rows_.importRow(slot).setLength(onPedal);
    rows_.importRow(slot).setTempo(tempo);
    auto& row = rows_.exportRow(slot);
    const auto staged = model_.staging().find(slot);
    const bool showsLoop = !row.exporting() || row.exported();
    row.setTempo(showsLoop ? tempo : 0);
    if (showsLoop) {
        row.setLength(onPedal);
    } else if (staged != model_.staging().end()) {
        row.setLength(Frames::ofBytes(staged->second.bytes));
    }
}

void Presenter::lengths() {
    for (const auto& row : rows_.imports) {
        length(slotOf(*row));
    }
}

void Presenter::table() {
    const auto changes = rows_.changing();
    for (const auto* const list : {&rows_.imports, &rows_.exports}) {
        for (const auto& row : *list) {
            const auto* const loop = model_.table().find(slotOf(*row));
            hold(*row, loop);
            if (loop != nullptr) {
                row->setAlignedBytes(loop->alignedBytes);
            }
            row->refresh();
        }
    }
    lengths();
    meter(model_.inUse());
}

void Presenter::change(const LoopModel::Change& change) {
    const auto changes = rows_.changing();
    for (const auto* const list : {&rows_.imports, &rows_.exports}) {
        for (const auto& row : *list) {
            const auto* const loop = model_.table().find(slotOf(*row));
            hold(*row, loop);
            if (loop != nullptr) {
                row->setSelected(change.selected.contains(slotOf(*row)));
            }
            if (loop != nullptr && !row->isExport()) {
                row->setAlignedBytes(loop->alignedBytes);
            }
            row->refresh();
        }
    }
    lengths();
    selection();
    window_.warning()->setVisible(change.overwrites);
    meter(model_.inUse());
}

void Presenter::left() {
    const auto changes = rows_.changing();
    enableImportAndErase(false);
    enableSelectButtons(false);
    window_.showMeter(false);
    emptyMeter();
    const auto empty = [](Slot& row) {
        row.setBytes(0);
        row.setSamples(0);
        row.setAlignedBytes(0);
        row.refresh();
    };
    for (const auto& row : rows_.imports) {
        row->setOccupied(false);
        row->endEditing();
        row->setCustomImportName(std::nullopt);
        empty(*row);
    }
    for (const auto& row : rows_.exports) {
        row->setExporting(std::nullopt);
        row->setExported(false);
        row->setOccupied(false);
        empty(*row);
    }
    lengths();
}

void Presenter::meter(Frames used) {
    const auto picture = meterPicture(used.count);
    window_.meter()->setPicture(QString::fromUtf8(picture.data(), static_cast<qsizetype>(picture.size())));
    setWidth(*window_.meter(), meterWidth(used.count));
    sayMeter(used);
}

void Presenter::sayMeter(Frames used) {
    constexpr int captionType = 13;
    constexpr Frames capacity{capacityFrames};
    constexpr std::uint64_t minutes = capacity.seconds() / 60;
    const Frames shown{std::min(used.count, capacity.count)};
    setFitted(*window_.meterCaption(), toQt(meterCaption(used.count)), captionType);
    window_.meter()->setUsed(
        static_cast<int>(shown.seconds()), static_cast<int>(capacity.seconds()),
        toQt(words(minutes, "%1 of %n minute in use", "%1 of %n minutes in use", spokenLength(shown))));
}

/// Its picture stays.
void Presenter::emptyMeter() {
    setWidth(*window_.meter(), 0);
    sayMeter({});
}

void Presenter::enableImportAndErase(bool enabled) {
    window_.enable(*window_.importButton(), enabled);
    window_.enable(*window_.eraseButton(), enabled);
}

void Presenter::enableSelectButtons(bool enabled) {
    window_.enable(*window_.selectAllButton(), enabled);
    window_.enable(*window_.deselectAllButton(), enabled);
}

void Presenter::checked(const Slot& row) {
    for (const auto& other : rows_.imports) {
        if (other.get() != &row && other->field()->isEditable()) {
            other->field()->setEditable(false);
        }
    }
    const bool byKey = row.button()->hasFocus() || (rows_.importGrid && rows_.importGrid->picking());
    if (!row.selected() && !byKey) {  // the keyboard goes on from where it is
        focusContent();
    }
    selection();
}

void Presenter::selection() {
    enableImportAndErase(!model_.selection().empty());
}

void Presenter::allSelected() {
    for (const auto slot : model_.selection()) {
        rows_.importRow(slot).setSelected(true);
    }
    if (!model_.selection().empty()) {
        enableImportAndErase(true);
    }
}

void Presenter::noneSelected() {
    for (const auto& row : rows_.imports) {
        if (row->occupied()) {
            row->endEditing();
            row->setSelected(false);
        }
    }
    enableImportAndErase(false);
}

void Presenter::endEditing() {
    for (const auto& row : rows_.imports) {
        row->endEditing();
    }
}

void Presenter::saved(SlotNumber slot) {
    auto& row = rows_.importRow(slot);
    row.setCustomImportName(std::nullopt);
    row.field()->setText(row.defaultName());
}

void Presenter::staged(SlotNumber slot, const QUrl& file) {
    meter(model_.inUse());
    auto& row = rows_.exportRow(slot);
    const RowChange change(row);
    row.setExporting(file);
    row.setExported(false);
    length(slot);
    window_.enable(*window_.exportButton(), !model_.staging().empty());
    if (row.occupied()) {
        window_.warning()->show();
    }
    stagingChanged_();
}

void Presenter::unstaged(Slot& row) {
    const RowChange change(row);
    row.setExported(false);
    length(slotOf(row));
    window_.enable(*window_.exportButton(), !model_.staging().empty());
    const bool overwrites = std::ranges::any_of(
        rows_.exports, [](const auto& other) { return other->occupied() && other->exporting().has_value(); });
    if (!overwrites) {
        window_.warning()->hide();
    }
    meter(model_.inUse());
    stagingChanged_();
}

/// A loop that failed is marked as well: the table is read again at the end.
void Presenter::sent(SlotNumber slot) {
    rows_.exportRow(slot).setExported(true);
}

void Presenter::exportsCleared() {
    const auto changes = rows_.changing();
    window_.enable(*window_.exportButton(), false);
    for (const auto& row : rows_.exports) {
        row->setExporting(std::nullopt);
        row->setExported(false);
    }
    lengths();
    window_.warning()->hide();
    stagingChanged_();
}

void Presenter::showTab(std::int32_t context) {
    const bool exports = context != Slot::importContext;
    if (exports) {
        meter(model_.inUse());
    }
    window_.showTab(exports ? 1 : 0);
}

void Presenter::focusContent() {
    window_.contentView()->setFocus();
}

}  // namespace kzq
