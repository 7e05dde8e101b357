#pragma once

#include <QString>
#include <chrono>
#include <cstdint>
#include <memory>

#include "audio/peaks.h"
#include "loops/frames.h"

namespace kzq {

/// What a row shows of the sound of its loop or of its staged file.
struct RowSound {
    /// What a press on the number does: play, give up, stop.
    enum class Ring : std::uint8_t { play, arriving, playing };

    Ring ring = Ring::play;
    std::shared_ptr<const Peaks> peaks;  ///< null: not read yet
    double position = -1;                ///< of the sound, 0 to 1; below 0: it does not play
    std::chrono::milliseconds played{};  ///< of this round

    // Export rows whose file would replace a loop, while one of both plays:
    bool compares = false;  ///< A/B is shown; A is the file, B the pedal's loop
    bool other = false;     ///< B plays
    std::shared_ptr<const Peaks> otherPeaks;
    Frames otherLength;

    /// Why there is no sound ("No sound device was found."), for the ring's tool tip; empty: there is.
    QString trouble;

    bool plays() const { return position >= 0; }
};

}  // namespace kzq
