#pragma once

#include <QPainter>

namespace kzq {

enum class Chevron { up, down };

/// A chevron of 8 x 4 around `middle`, in strokes of 2.
inline void drawChevron(QPainter& painter, QPointF middle, Chevron pointing, const QColor& color) {
    const double tip = pointing == Chevron::down ? 2 : -2;
    painter.setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(
        QPolygonF({middle + QPointF(-4, -tip), middle + QPointF(0, tip), middle + QPointF(4, -tip)}));
}

}  // namespace kzq
