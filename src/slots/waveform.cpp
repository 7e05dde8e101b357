#include "slots/waveform.h"

#include <algorithm>
#include <cmath>

#include "ui/palette.h"
#include "ui/scaled_painter.h"

namespace kzq {

namespace {

constexpr int barWidth = 2;
constexpr int barPitch = 4;
constexpr int middle = 14;
constexpr int halfHeight = 8;
constexpr int betweenHalves = 1;  // from the middle to each of them
constexpr int freeOfPlayhead = 2;
constexpr double loudest = 255;

constexpr int grooveFoot = 26;
constexpr int tapeTop = 2;

QRect barAt(int x, int loudness, Waveform::Part part) {
    const int height = static_cast<int>(std::lround(halfHeight * loudness / loudest));
    switch (part) {
        case Waveform::Part::upper:
            return {x, middle - betweenHalves - std::max(2, height), barWidth, std::max(2, height)};
        case Waveform::Part::lower:
            return {x, middle + betweenHalves, barWidth, std::max(2, height)};
        case Waveform::Part::whole:
            break;
    }
    const int half = std::max(1, height);
    return {x, middle - half, barWidth, 2 * half};
}

bool touchesPlayhead(const Waveform& waveform, const QRect& bar) {
    if (!waveform.playhead) {
        return false;
    }
    return bar.left() < *waveform.playhead + barWidth + freeOfPlayhead &&
           bar.left() + barWidth > *waveform.playhead - freeOfPlayhead;
}

}  // namespace

void drawWaveform(QPainter& painter, const Waveform& waveform) {
    const bool tape = waveform.ground == RowGround::tape;
    const int bars = (waveform.right - waveform.left + barPitch - barWidth) / barPitch;
    const auto columnOf = [bars](int bar) {
        return static_cast<std::size_t>(bar) * Peaks::columns / static_cast<std::size_t>(bars);
    };
    for (int index = 0; index < bars; ++index) {
        const int x = waveform.left + index * barPitch;
        const bool known = waveform.peaks != nullptr && columnOf(index + 1) <= waveform.peaks->known;
        int loudness = 0;
        if (known) {
            const auto* const heights = waveform.peaks->heights.data();
            loudness = *std::max_element(heights + columnOf(index), heights + columnOf(index + 1));
        }
        const auto bar = barAt(x, loudness, waveform.part);
        if (touchesPlayhead(waveform, bar)) {
            continue;
        }
        const bool played = waveform.sounds && waveform.playhead && x < *waveform.playhead;
        const auto resting =
            known ? (tape ? waveOnTapeColor() : waveColor()) : (tape ? missingOnTapeColor() : missingColor());
        painter.fillRect(sharp(painter, bar), known && played ? creamColor() : resting);
    }
}

double playheadAt(double position, int left, int right, double deviceScale) {
    const double exact = left + std::clamp(position, 0.0, 1.0) * (right - barWidth - left);
    return std::round(exact * deviceScale) / deviceScale;
}

void drawPlayhead(QPainter& painter, double x, RowGround ground) {
    const int top = ground == RowGround::tape ? tapeTop : 0;
    const auto scale = deviceScaleOf(painter);
    const double width = std::ceil(barWidth * scale) / scale;  // never thinner than a bar
    painter.fillRect(sharp(painter, QRectF(x, top, width, grooveFoot - top)), KZQYellow());
}

}  // namespace kzq
