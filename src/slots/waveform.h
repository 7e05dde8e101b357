#pragma once

#include <QPainter>
#include <optional>

#include "audio/peaks.h"
#include "slots/row_layout.h"

namespace kzq {

/// A loop's loudness as bars 2 wide every 4, about the middle of a row of 28.
struct Waveform {
    /// Where two are compared, each has one half of the height.
    enum class Part : std::uint8_t { whole, upper, lower };

    const Peaks* peaks = nullptr;  ///< what is not known yet is a row of dots; null: nothing is
    int left = 0;
    int right = 0;
    RowGround ground = RowGround::groove;
    Part part = Part::whole;
    std::optional<double> playhead;  ///< its left edge; no bar stands close to it
    bool sounds = false;             ///< the bars before the playhead are cream
};

/// On whole pixels of the device.
void drawWaveform(QPainter& painter, const Waveform& waveform);

/// The left edge of the playhead, 2 wide, when `position` (0 to 1) of the sound has been played: on a whole
/// device pixel, with `deviceScale` of them to one of 100 %.
double playheadAt(double position, int left, int right, double deviceScale);
void drawPlayhead(QPainter& painter, double x, RowGround ground);

}  // namespace kzq
