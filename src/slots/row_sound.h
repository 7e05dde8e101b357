#pragma once

#include <QString>
#include <chrono>
#include <cstdint>
#include <memory>

#include "audio/peaks.h"
#include "loops/frames.h"

namespace kzq {

struct RowSound {
    enum class Ring : std::uint8_t {
        play,
        arriving,
        playing
    };  ///< what a press on the number does: play, give up, stop
    Ring ring = Ring::play;
    std::shared_ptr<const Peaks> peaks;  ///< null: not read yet
    double position = -1;                ///< of the sound, 0 to 1; below 0: it does not play
    std::chrono::milliseconds played{};  ///< of this round
    // Export rows whose file would replace a loop, while one of both plays:
    bool compares = false;  ///< A/B is shown; A is the file, B the pedal's loop
    bool other = false;     ///< B plays
    std::shared_ptr<const Peaks> otherPeaks;
    Frames otherLength;
    QString trouble;  ///< why there is no sound ("No sound device was found."), for ring's tool tip; empty:
                      ///< there is
};

}  // namespace kzq
