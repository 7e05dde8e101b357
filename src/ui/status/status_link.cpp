#include "ui/status/status_link.h"

#include <cmath>

#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/scale.h"
#include "ui/scaled_painter.h"
#include "ui/spoken.h"
#include "ui/status/status_look.h"

namespace kzq {

StatusLink::StatusLink(QWidget* parent) : KeyButton(parent) {
    setCursor(Qt::PointingHandCursor);
    setProperty("focusRingRadius", 3);
    setFont(textFont(status::words));
}

void StatusLink::setWord(const QString& word) {
    setText(word);
    callIt(*this, word);
    const auto width = static_cast<int>(std::ceil(advanceOf(word, fontOf(*this))));
    place(*this, {placeOf(*this).topLeft(), QSize(width, status::height)});
    update();
}

QRect StatusLink::focusRingRect() const {
    const int room = onScreen(2);
    return rect().adjusted(-room, room, room, -room);
}

void StatusLink::setFaint(bool faint) {
    faint_ = faint;
    update();
}

void StatusLink::paintEvent(QPaintEvent* /*event*/) {
    const auto color = hovering() || isDown() ? KZQLinkHover() : faint_ ? status::faintCream() : creamColor();
    ScaledPainter painter(this);
    painter.setPen(color);
    const auto advance = painter.advance(text());
    const auto left = painter.bounds().width() - advance;
    painter.write(QPointF(left, status::baseline), text());
    painter.fill(QRectF(left, status::baseline + 2, advance, 1), color);
}

}  // namespace kzq
