#include "ui/status/status_link.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

#include "ui/fonts.h"
#include "ui/palette.h"
#include "ui/status/status_look.h"

namespace kzq {

StatusLink::StatusLink(QWidget* parent) : KeyButton(parent) {
    setCursor(Qt::PointingHandCursor);
    setProperty("focusRingRadius", 3);
    setFont(textFont(status::words));
}

void StatusLink::setWord(const QString& word) {
    setText(word);
    setAccessibleName(word);
    setFixedSize(static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(word))), status::height);
    update();
}

void StatusLink::setFaint(bool faint) {
    faint_ = faint;
    update();
}

void StatusLink::paintEvent(QPaintEvent* /*event*/) {
    const auto color = hovering() || isDown() ? KZQLinkHover() : faint_ ? status::faintCream() : creamColor();
    QPainter painter(this);
    painter.setFont(font());
    painter.setPen(color);
    const auto advance = QFontMetricsF(font()).horizontalAdvance(text());
    painter.drawText(QPointF(width() - advance, status::baseline), text());
    painter.fillRect(QRectF(width() - advance, status::baseline + 2, advance, 1), color);
}

}  // namespace kzq
