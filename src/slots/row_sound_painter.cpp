#include "slots/row_sound_painter.h"

#include "slots/slot.h"
#include "slots/waveform.h"
#include "ui/figures.h"
#include "ui/fonts.h"
#include "ui/palette.h"

namespace kzq {

namespace {

constexpr int clockPixels = 12;
constexpr int clockBaseline = 18;

QColor clockColour(RowGround ground, bool plays, double deviceScale) {
    switch (ground) {
        case RowGround::console:
            return lengthOnConsoleColor();
        case RowGround::tape:
            return plays ? creamColor() : lengthOnTapeColor();
        case RowGround::groove:
            break;
    }
    return plays ? creamColor() : lengthColor(deviceScale);
}

void drawWaveforms(QPainter& painter, const RowSound& sound, RowGround ground, const RowLayout& layout) {
    Waveform waveform{.peaks = sound.peaks.get(),
                      .left = *layout.waveLeft,
                      .right = layout.waveRight,
                      .ground = ground,
                      .part = sound.compares ? Waveform::Part::upper : Waveform::Part::whole,
                      .playhead = {},
                      .sounds = !sound.other};
    if (sound.plays()) {
        waveform.playhead = playheadAt(sound.position, waveform.left, waveform.right, deviceScaleOf(painter));
    }
    if (sound.compares) {
        drawWaveform(painter, waveform);
        waveform.part = Waveform::Part::lower;
        waveform.peaks = sound.otherPeaks.get();
        waveform.sounds = sound.other;
    }
    drawWaveform(painter, waveform);
    if (waveform.playhead) {
        drawPlayhead(painter, *waveform.playhead, ground);
    }
}

}  // namespace

void drawRowSound(ScaledPainter& painter, const Slot& row) {
    const auto ground = row.ground();
    const auto layout = row.layout();
    if (layout.waveLeft) {
        drawWaveforms(painter, row.sound(), ground, layout);
    }
    painter.setType(textFont(clockPixels));
    painter.setPen(clockColour(ground, row.sound().plays(), painter.deviceScale()));
    drawFigures(painter, layout.clockRight, clockBaseline, row.clock());
}

}  // namespace kzq
