#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include "loops/facts.h"

namespace kzq {

/// A length of audio. It is not a number of bytes.
struct Frames {
    std::uint64_t count = 0;

    /// Bytes of a part of a frame do not count.
    static constexpr Frames ofBytes(std::uint64_t bytes) { return {bytes / frameBytes}; }
    constexpr std::uint64_t bytes() const { return count * frameBytes; }
    /// Whole ones.
    constexpr std::uint64_t seconds() const { return count / framesPerSecond; }
    auto operator<=>(const Frames&) const = default;  // NOLINT(modernize-use-nullptr): compared with 0
};

/// "m:ss"
inline std::string clockText(std::uint64_t seconds) {
    constexpr std::uint64_t minute = 60;
    return std::to_string(seconds / minute) + (seconds % minute < 10 ? ":0" : ":") +
           std::to_string(seconds % minute);
}
inline std::string clockText(Frames length) {
    return clockText(length.seconds());
}

}  // namespace kzq
