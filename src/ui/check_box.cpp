#include "ui/check_box.h"

#include <QPainter>

#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/pictures.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr int boxSide = 20;
constexpr int rowHeight = 24;
constexpr int gap = 8;
constexpr QRect box(0, (rowHeight - boxSide) / 2, boxSide, boxSide);

}  // namespace

CheckBox::CheckBox(const QString& title, QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setText(title);
    setAccessibleName(title);
    setFocusPolicy(Qt::TabFocus);
    setFont(textFont());
    setProperty("focusRingRadius", 6);
    resize(sizeHint());
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static): a property
QRect CheckBox::focusRingRect() const {
    return {onScreen(box.x()), onScreen(box.y()), onScreen(box.width()), onScreen(box.height())};
}

QSize CheckBox::sizeHint() const {
    return {boxSide + gap + static_cast<int>(std::ceil(advanceOf(text(), textFont()))), rowHeight};
}

void CheckBox::paintEvent(QPaintEvent* /*event*/) {
    ScaledPainter painter(this);
    drawPicture(painter, isChecked() ? "Check_on" : "Check_off", box);
    painter.setPen(underMouse() ? KZQWhite() : creamColor());
    painter.write(painter.bounds().adjusted(boxSide + gap, 0, 0, 0), Qt::AlignVCenter, text());
}

}  // namespace kzq
