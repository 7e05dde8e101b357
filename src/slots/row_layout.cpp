#include "slots/row_layout.h"

#include <algorithm>
#include <array>

namespace kzq {

namespace {

constexpr int fieldRight = 292;
constexpr int clockRightInGroove = 328;
constexpr int clockRightOnTape = 288;  // the leader is cut off behind it
constexpr int waveRightInGroove = 286;
constexpr int waveRightOnTape = 246;
constexpr int beforeClock = 12;
constexpr int afterName = 8;
constexpr int narrowestWave = 46;
constexpr std::array waveStops{136, 160, 184, 200, 224, 240};

std::optional<int> stopAfter(double nameEnd, int waveRight) {
    for (const int stop : waveStops) {
        if (stop >= nameEnd + afterName && waveRight - stop >= narrowestWave) {
            return stop;
        }
    }
    return std::nullopt;
}

int lastStop(int waveRight) {
    const auto fits = [waveRight](int stop) { return waveRight - stop >= narrowestWave; };
    return *std::find_if(waveStops.rbegin(), waveStops.rend(), fits);
}

}  // namespace

RowLayout layOutRow(const RowContents& contents) {
    const bool tape = contents.ground == RowGround::tape;
    RowLayout layout;
    layout.clockRight = tape ? clockRightOnTape : clockRightInGroove;
    layout.waveRight = tape ? waveRightOnTape : waveRightInGroove;
    layout.nameRight =
        contents.clockWidth == 0
            ? fieldRight
            : std::min<double>(fieldRight, layout.clockRight - contents.clockWidth - beforeClock);
    if (!contents.waveform || contents.ground == RowGround::console) {
        return layout;
    }
    const double nameEnd = std::min(contents.nameLeft + contents.nameWidth, layout.nameRight);
    layout.waveLeft = stopAfter(nameEnd, layout.waveRight);
    if (!layout.waveLeft && contents.plays) {
        layout.waveLeft = lastStop(layout.waveRight);
        layout.nameRight = *layout.waveLeft - afterName;
    }
    return layout;
}

}  // namespace kzq
