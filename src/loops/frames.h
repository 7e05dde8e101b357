#pragma once

#include <compare>
#include <cstdint>

#include "loops/facts.h"

namespace kzq {

/// A length of audio. It is not a number of bytes.
struct Frames {
    std::uint64_t count = 0;

    /// Bytes of a part of a frame do not count.
    static constexpr Frames ofBytes(std::uint64_t bytes) { return {bytes / frameBytes}; }
    constexpr std::uint64_t bytes() const { return count * frameBytes; }
    auto operator<=>(const Frames&) const = default;
};

}  // namespace kzq
