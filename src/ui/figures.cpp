#include "ui/figures.h"

#include <QFontMetricsF>

namespace kzq {

namespace {

double cellOf(QChar character) {
    return character == QLatin1Char(':') ? 3 : 7;
}

}  // namespace

double figuresWidth(const QString& clock) {
    double width = 0;
    for (const auto character : clock) {
        width += cellOf(character);
    }
    return width;
}

void drawFigures(QPainter& painter, double right, double baseline, const QString& clock) {
    const QFontMetricsF metrics(painter.font());
    double x = right - figuresWidth(clock);
    for (const auto character : clock) {
        const auto cell = cellOf(character);
        painter.drawText(QPointF(x + (cell - metrics.horizontalAdvance(character)) / 2, baseline),
                         QString(character));
        x += cell;
    }
}

}  // namespace kzq
