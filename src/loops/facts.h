#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "words/words.h"

namespace kzq {

// What holds for every pedal and every loop; each number stands here only.

/// Slots are numbered 1 to 20 in the program, 0 to 19 on the wire.
inline constexpr unsigned loopSlots = 20;

inline constexpr std::uint64_t capacityFrames = 63'504'000;  ///< 24 minutes
inline constexpr std::uint32_t framesPerSecond = 44'100;
/// A frame: two channels of 24 bits.
inline constexpr std::uint64_t frameBytes = 6;

/// The endings, in lower case, of audio files that a row takes.
inline constexpr std::array<std::string_view, 8> audioExtensions = {"wav", "aif", "aiff", "mp3",
                                                                    "m4a", "aac", "ac3",  "flac"};

/// "Loop 7"
inline std::string loopName(unsigned slot) {
    return "Loop " + std::to_string(slot);
}

/// "1 loop", "3 loops"
inline std::string loopsText(std::uint64_t count) {
    return words(count, "%n loop", "%n loops");
}

}  // namespace kzq
