#include "slots/slot_compare.h"

#include <QPainter>
#include <QSignalBlocker>

#include "ui/pictures.h"
#include "ui/scale.h"

namespace kzq {

SlotCompare::SlotCompare(QWidget* parent) : KeyButton(parent) {
    setFocusPolicy(Qt::NoFocus);
    setProperty("focusRingRadius", 2);
    setCheckable(true);
    connect(this, &QAbstractButton::clicked, this, &SlotCompare::action);
    connect(this, &QAbstractButton::toggled, this, &SlotCompare::action);  // by assistive technology
}

void SlotCompare::setOther(bool other) {
    const QSignalBlocker noAction(this);
    setChecked(other);
    update();
}

QRect SlotCompare::focusRingRect() const {
    return rect().adjusted(onScreen(4), 0, 0, 0);
}

QString SlotCompare::pictureName() const {
    return QString::fromLatin1(isChecked() ? "Export_compare_B%1" : "Export_compare_A%1")
        .arg(QLatin1String(hovering() ? "_Hover" : ""));
}

void SlotCompare::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawPicture(painter, pictureName(), rect());
}

}  // namespace kzq
