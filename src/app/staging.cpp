#include <QUrl>
#include <system_error>

#include "app/app_delegate.h"
#include "app/main_window.h"
#include "audio/wave.h"
#include "loops/capacity.h"
#include "loops/facts.h"
#include "platform/log.h"
#include "slots/slot_field.h"
#include "slots/slot_field_editor.h"
#include "ui/background.h"
#include "ui/lower_button.h"

namespace kzq {

namespace {

/// Time for an open panel to close.
constexpr auto afterPanel = std::chrono::milliseconds(100);

const FileTypes audioTypes(audioExtensions.begin(), audioExtensions.end());

}  // namespace

Slot* AppDelegate::slotNumber(std::uint8_t number, std::int32_t context) {
    const auto& list = context == Slot::importContext ? importSlots_ : exportSlots_;
    return number == 0 || number > list.size() ? nullptr : list[number - 1U].get();
}

void AppDelegate::checkboxStateChangedForImportSlot(Slot& slot) {
    for (const auto& other : importSlots_) {
        if (other.get() != &slot && other->field()->isEditable()) {
            other->field()->setEditable(false);
        }
    }
    if (slot.selected()) {
        selectedImportSlots_.insert(slot.slot());
    } else {
        selectedImportSlots_.erase(slot.slot());
        focusContent();
    }
    setImportAndEraseEnabled(!selectedImportSlots_.empty());
}

void AppDelegate::buttonClickedForExportSlot(Slot& slot) {
    const auto number = slot.number();
    const auto chosen = environment_.dialogs.chooseFile(audioTypes);
    if ((chosen.answer != panelOk && chosen.answer != panelContinue) || chosen.path.empty()) {
        return;
    }
    const auto file = QUrl::fromLocalFile(QString::fromStdString(chosen.path.string()));
    environment_.executor.mainAfter(afterPanel, [weak = weak_from_this(), number, file] {
        const auto self = weak.lock();
        if (auto* const row = self ? self->slotNumber(number, Slot::exportContext) : nullptr) {
            self->slotReceivedDroppedURLs(*row, {file});
        }
    });
}

void AppDelegate::slotReceivedDroppedURLs(Slot& slot, const QList<QUrl>& urls) {
    if (urls.isEmpty()) {
        return;
    }
    const Drop drop{slot.slot(), urls.first(), ++drops_};
    environment_.executor.background(
        Priority::high, [&executor = environment_.executor, weak = weak_from_this(), drop,
                         convert = environment_.convert, path = drop.file.toLocalFile().toStdString()] {
            const auto copy = convert(path);
            if (!copy) {
                return;
            }
            executor.main([weak, drop, copy = std::filesystem::path(*copy)] {
                if (const auto self = weak.lock()) {
                    self->stage(drop, copy);
                }
            });
        });
}

void AppDelegate::stage(const Drop& drop, const std::filesystem::path& copy) {
    std::error_code error;
    const auto size = std::filesystem::file_size(copy, error);
    auto* const slot = row(drop.slot, Slot::exportContext);
    if (error || size < waveHeaderSize || slot == nullptr) {
        return;
    }
    if (drop.order < lastStaged_[drop.slot]) {
        std::filesystem::remove(copy, error);  // a later drop on this row was converted sooner
        return;
    }
    const auto info = exportInfoForLoop(drop.slot.number(), slot->occupied(), copy, size - waveHeaderSize);
    if (!info) {
        return;
    }
    const auto total =
        existingAndTeedUpExportSamplesWithProposedExport(info->bytes / frameBytes, slot->number());
    if (!fitsCapacity(total)) {
        environment_.dialogs.run(alertWithHeadline(std::string(tooLargeSentence)));
        return;
    }
    lastStaged_[drop.slot] = drop.order;
    setMeterValueAndCaption(total);
    slot->setExporting(drop.file);
    slot->setExported(false);
    selectedExportSlots_.insert_or_assign(drop.slot, *info);
    window_.exportButton()->setEnabled(!selectedExportSlots_.empty());
    if (slot->occupied()) {
        window_.warning()->show();
    }
}

void AppDelegate::exportAboutToBeRemoved(Slot& slot) {
    if (const auto staged = selectedExportSlots_.find(slot.slot()); staged != selectedExportSlots_.end()) {
        std::error_code ignored;
        std::filesystem::remove(staged->second.source, ignored);
    }
}

void AppDelegate::exportRemoved(Slot& slot) {
    slot.setExported(false);
    selectedExportSlots_.erase(slot.slot());
    window_.exportButton()->setEnabled(!selectedExportSlots_.empty());
    const bool overwrites = std::ranges::any_of(
        exportSlots_, [](const auto& row) { return row->occupied() && row->exporting().has_value(); });
    if (!overwrites) {
        window_.warning()->hide();
    }
    setMeterValueAndCaption(existingAndTeedUpExportSamples());
}

void AppDelegate::nameEditingBeganForSlot(Slot& /*slot*/) {}

void AppDelegate::nameEditingEndedForSlot(Slot& /*slot*/) {
    focusContent();
}

SlotFieldEditor* AppDelegate::windowWillReturnFieldEditor(QWidget* /*window*/, QObject* object) {
    return qobject_cast<SlotField*>(object) != nullptr ? fieldEditor_.get() : nullptr;
}

/// Ends any editing.
void AppDelegate::focusContent() {
    window_.contentView()->setFocus();
}

}  // namespace kzq
