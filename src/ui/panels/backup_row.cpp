#include "ui/panels/backup_row.h"

#include <QKeyEvent>

#include "loops/facts.h"
#include "ui/figures.h"
#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/qt_words.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

using Look = BackupSlot::Look;

constexpr int slotsBelowEachOther = 10;
constexpr int numberEnd = 20;
constexpr QRect markFrame(28, 6, 16, 16);
constexpr QRect slotField(52, 0, 260, 28);

// in the field
constexpr int loopNameX = 16;
constexpr int loopLengthEnd = 128;
constexpr int wordsX = 140;
constexpr int leaderX = 224;  // where a field that is not empty has one
constexpr int fieldBaseline = 18;

QString fieldOf(Look look) {
    switch (look) {
        case Look::fresh:
            return "Backup_field_new";
        case Look::replaces:
            return "Backup_field_replaced";
        case Look::erased:
            return "Backup_field_erased";
        case Look::saved:
            return "Backup_field_saved";
        default:
            return {};  // the panel has the groove
    }
}

bool isTaped(Look look) {
    return look == Look::fresh || look == Look::replaces || look == Look::saved;
}

}  // namespace

QString markOf(Look look) {
    switch (look) {
        case Look::none:
        case Look::absent:
            return "Change_none";
        case Look::rest:
            return "Change_same";
        case Look::fresh:
            return "Target_chosen";
        case Look::replaces:
            return "Change_replaced";
        case Look::erased:
            return "Change_erased";
        case Look::saved:
            return "Change_saved";
        case Look::damaged:
            break;
    }
    return "Status_mark";
}

BackupRow::BackupRow(unsigned slot, QWidget* parent) : QWidget(parent), slot_(slot) {
    setFocusPolicy(Qt::ClickFocus);
    setProperty("focusRingRect", QRect());
    setProperty("focusRingRadius", 4);
    resize(rowSize);
}

void BackupRow::show(const BackupSlot& slot) {
    shown_ = slot;
    if (accessibleName() != slot.spoken) {
        setAccessibleName(slot.spoken);
    }
    update();
}

void BackupRow::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            Q_EMIT walked(-1);
            break;
        case Qt::Key_Down:
            Q_EMIT walked(1);
            break;
        case Qt::Key_Left:
            Q_EMIT walked(-slotsBelowEachOther);
            break;
        case Qt::Key_Right:
            Q_EMIT walked(slotsBelowEachOther);
            break;
        default:
            QWidget::keyPressEvent(event);
    }
}

void BackupRow::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setType(textFont());
    painter.setPen(KZQGray());
    const auto number = QString::number(slot_);
    painter.write(QPointF(numberEnd - painter.advance(number), fieldBaseline), number);
    drawPicture(painter, markOf(shown_.look), markFrame);
    if (const auto field = fieldOf(shown_.look); !field.isEmpty()) {
        drawPicture(painter, field, slotField);
    }
    if (shown_.look != Look::none) {
        painter.translate(slotField.topLeft());
        paintWords(painter);
    }
}

void BackupRow::paintWords(ScaledPainter& painter) const {
    const auto look = shown_.look;
    const auto resting = lengthColor(painter.deviceScale());
    const auto words = isTaped(look) ? lengthOnTapeColor() : resting;
    painter.setPen(look == Look::replaces                  ? KZQYellow()
                   : isTaped(look) || look == Look::erased ? KZQWhite()
                                                           : restingTextColor(painter.deviceScale()));
    painter.write(QPointF(loopNameX, fieldBaseline), toQt(loopName(slot_)));
    painter.setType(textFont(12));
    painter.setPen(words);
    drawFigures(painter, loopLengthEnd, fieldBaseline, shown_.length);
    painter.setPen(look == Look::erased ? KZQRed() : look == Look::damaged ? KZQYellow() : words);
    painter.writeWithin(QPointF(wordsX, fieldBaseline), shown_.words,
                        (fieldOf(look).isEmpty() ? slotField.width() : leaderX) - wordsX);
}

}  // namespace kzq
