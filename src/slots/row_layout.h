#pragma once

#include <QString>
#include <cstdint>
#include <optional>

namespace kzq {

/// What a row's name lies on: a dark groove, the tape of what will travel, the console tape of a name that is
/// being typed.
enum class RowGround : std::uint8_t { groove, tape, console };

/// What has to find room beside each other in a row.
struct RowContents {
    RowGround ground = RowGround::groove;
    double nameLeft = 76;
    double nameWidth = 0;   ///< of the whole name
    double clockWidth = 0;  ///< of the length; 0: none is shown
    bool waveform = false;  ///< there is one to show
    bool plays = false;
};

/// Where it stands, in pixels of 100 % from the row's left edge.
struct RowLayout {
    double nameRight = 0;   ///< a longer name is cut here
    double clockRight = 0;  ///< where the length ends
    /// Where the waveform begins: at one of a few stops, so that rows with short names begin together.
    /// Nothing if there is none, or no room for it.
    std::optional<int> waveLeft;
    int waveRight = 0;

    bool operator==(const RowLayout&) const = default;
};

RowLayout layOutRow(const RowContents& contents);

}  // namespace kzq
