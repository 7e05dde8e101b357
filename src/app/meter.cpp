#include <QLabel>

#include "app/app_delegate.h"
#include "app/main_window.h"
#include "loops/capacity.h"
#include "ui/picture_view.h"
#include "ui/view_width.h"

namespace kzq {

std::uint64_t AppDelegate::existingAndTeedUpExportSamples() const {
    return kzq::existingAndTeedUpExportSamples(existingLoops(), selectedExportSlots_);
}

std::uint64_t AppDelegate::existingAndTeedUpExportSamplesWithProposedExport(std::uint64_t frames,
                                                                            std::uint8_t slot) const {
    return kzq::existingAndTeedUpExportSamplesWithProposedExport(existingLoops(), selectedExportSlots_,
                                                                 frames, *SlotNumber::of(slot));
}

/// The pedal's loops as the import rows show them, as far as the meter needs them.
Loops AppDelegate::existingLoops() const {
    Loops loops;
    for (const auto& slot : importSlots_) {
        if (slot->occupied()) {
            loops.put(slot->slot(), {.samples = static_cast<std::uint32_t>(slot->samples())});
        }
    }
    return loops;
}

void AppDelegate::setMeterValueAndCaption(std::uint64_t frames) {
    const auto picture = meterPicture(frames);
    window_.meter()->setPicture(QString::fromUtf8(picture.data(), static_cast<qsizetype>(picture.size())));
    setWidth(*window_.meter(), meterWidth(frames));
    window_.meterCaption()->setText(QString::fromStdString(meterCaption(frames)));
}

}  // namespace kzq
