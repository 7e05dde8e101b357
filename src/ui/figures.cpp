#include "ui/figures.h"

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

void drawFigures(ScaledPainter& painter, double right, double baseline, const QString& clock) {
    double x = right - figuresWidth(clock);
    for (const auto character : clock) {
        const auto cell = cellOf(character);
        const QString sign(character);
        painter.write(QPointF(x + (cell - painter.advance(sign)) / 2, baseline), sign);
        x += cell;
    }
}

}  // namespace kzq
