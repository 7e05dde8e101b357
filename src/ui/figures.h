#pragma once

#include <QString>

#include "ui/scaled_painter.h"

namespace kzq {

// Lengths such as "12:09" in the painter's type and colour: every figure has a cell of 7, a colon one of 3,
// so that they stand below each other.

double figuresWidth(const QString& clock);
/// Ends at `right`.
void drawFigures(ScaledPainter& painter, double right, double baseline, const QString& clock);

}  // namespace kzq
