#pragma once

#include "ui/scaled_painter.h"

namespace kzq {

class Slot;

/// Draws the row's waveform and its length, or the time played, in the row's coordinates.
void drawRowSound(ScaledPainter& painter, const Slot& row);

}  // namespace kzq
