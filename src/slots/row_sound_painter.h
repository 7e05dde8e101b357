#pragma once

#include <QPainter>

namespace kzq {

class Slot;

/// Draws the row's waveform and its length, or the time played, in the row's coordinates.
void drawRowSound(QPainter& painter, const Slot& row);

}  // namespace kzq
