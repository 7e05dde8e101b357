#include "slots/slot_button.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QSignalBlocker>

#include "slots/slot.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"

namespace kzq {

namespace {

QString exportPicture(bool occupied, bool staged) {
    const auto* const state = occupied ? (staged ? "Overwrite" : "Filled") : (staged ? "On" : "Empty");
    return QString::fromLatin1("Export_Add_") + QString::fromLatin1(state);
}

}  // namespace

SlotButton::SlotButton(QWidget* parent) : SlotDropTarget(parent) {
    // A checkbox acts when toggled: assistive technology toggles it without a click.
    connect(this, &QAbstractButton::toggled, this, &SlotButton::sendAction);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (!isCheckable()) {
            sendAction();
        }
    });
}

void SlotButton::setState(int state) {
    {
        const QSignalBlocker noAction(this);
        setChecked(state == 1);
    }
    resetImage();
}

void SlotButton::setEnabled(bool enabled) {
    KeyButton::setEnabled(enabled);
    resetImage();
}

bool SlotButton::setImage(const QString& name) {
    if (!picture(name)) {
        return false;
    }
    image_ = name;
    update();
    return true;
}

QString SlotButton::imageForRow(const Slot& row) const {
    if (row.isExport()) {
        return exportPicture(row.occupied(), row.exporting().has_value());
    }
    const auto* const shown = !isEnabled() ? "gray" : state() == 1 ? "On" : "Off";
    return QString::fromLatin1("Import_Selector_") + QString::fromLatin1(shown);
}

void SlotButton::resetImage() {
    auto* const row = controller();
    if (row == nullptr || !setImage(imageForRow(*row))) {
        return;
    }
    if (row->isExport()) {
        setToolTip(toQt(row->occupied() ? words("Overwrite Loop") : words("Add Loop")));
    }
    row->sync();
}

void SlotButton::sendAction() {
    const QPointer<SlotButton> self(this);
    if (auto* const row = controller(); row != nullptr && row->field() != nullptr && state() != 1) {
        row->setCustomImportName(std::nullopt);
        row->field()->setEditable(false);
        row->setCustomImportName(std::nullopt);  // ending the editing has just kept what was typed
        row->field()->setText(row->defaultName());
    }
    Q_EMIT action();
    if (self == nullptr) {
        return;
    }
    resetImage();
    if (auto* const row = controller(); row != nullptr && row->isExport()) {
        row->resetNameField();  // if no file was chosen, the default name has to disappear again
    }
}

// A key does everything a click does, including toggling the checkbox.
void SlotButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
        KeyButton::keyPressEvent(event);
    } else if (!event->isAutoRepeat()) {
        click();
    }
}

void SlotButton::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space) {
        KeyButton::keyReleaseEvent(event);
    } else if (!event->isAutoRepeat() && isDown()) {
        setDown(false);
        click();
    }
}

void SlotButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const auto* const row = controller();
    if (row != nullptr && row->dropSign() && row->dropSign()->kind != DropSign::Kind::refused) {
        drawPicture(painter, exportPicture(row->dropSign()->kind == DropSign::Kind::replaces, true), rect());
        return;
    }
    const bool gray = !isEnabled() && (row == nullptr || !row->isExport());
    const auto tint = !isEnabled() ? QColor() : isDown() ? pressTint() : hovering() ? hoverTint() : QColor();
    drawPicture(painter, gray ? QString::fromLatin1("Import_Selector_gray") : image_, rect(), tint);
}

}  // namespace kzq
