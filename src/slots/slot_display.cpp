// What a row shows, derived from its state; only here.

#include "slots/slot.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"

namespace kzq {

namespace {

constexpr int namePixels = 13;

QString fieldPicture(const char* list, const char* state) {
    return QString::fromLatin1(list) + QString::fromLatin1("_field_") + QString::fromLatin1(state);
}

}  // namespace

void Slot::sync() {
    if (field_ == nullptr || background_ == nullptr || button_ == nullptr || x_ == nullptr) {
        return;
    }
    if (isExport()) {
        syncExport();
    } else {
        syncImport();
    }
    showSound();
}

void Slot::syncExport() {
    const bool waiting = isStaged();
    const auto* const state = !waiting ? "Off" : occupied_ ? "overwrite" : "On";
    if (!showBackground(fieldPicture("Export", state))) {
        return;
    }
    field_->setTextColour(!waiting ? restingTextColor() : occupied_ ? KZQYellow() : KZQWhite());
    field_->update();
}

void Slot::syncImport() {
    const bool renaming = field_->isEditable();
    const auto* const state = renaming ? "rename" : selected() ? "On" : "Off";
    if (!showBackground(fieldPicture("Import", state))) {
        return;
    }
    field_->setTextColour(renaming ? QColor(Qt::black) : selected() ? KZQWhite() : restingTextColor());
    if (renaming) {
        const auto font = firaSans(FiraWeight::regular, namePixels);
        if (!font) {
            return;
        }
        if (field_->text().isEmpty()) {
            field_->setText(defaultName_);
        }
        field_->setStyledText(*font);
    } else {
        field_->setPlainText();
    }
    field_->update();
}

void Slot::resetNameField() {
    if (field_ == nullptr || button_ == nullptr || background_ == nullptr ||
        field_->currentEditor() != nullptr) {
        return;
    }
    const RowChange change(*this);
    if (isExport()) {
        field_->setText(shownName());
        button_->resetImage();
    } else {
        resetImportField();
    }
    showSound();
}

void Slot::resetImportField() {
    button_->setEnabled(occupied_);
    field_->setEnabled(occupied_);
    if (!occupied_) {
        button_->setState(0);
    }
    field_->setText(occupied_ ? shownName() : QString());
    const bool on = occupied_ && selected();
    showBackground(fieldPicture("Import", on ? "On" : "Off"));
    field_->setTextColour(on ? KZQWhite() : restingTextColor());
    field_->update();
}

void Slot::refresh() {
    resetNameField();
    if (view_ != nullptr) {
        view_->update();
    }
}

bool Slot::showBackground(const QString& name) {
    if (!picture(name)) {
        return false;
    }
    background_->setImage(name);
    return true;
}

}  // namespace kzq
