#pragma once

#include <cstdint>
#include <map>

#include "loops/loop.h"

namespace kzq {

/// Slot number, 1 to 20, to its loop; empty slots have no entry.
struct Loops : std::map<std::uint8_t, Loop> {
    using map::map;

    /// Every reply that it was made from came whole. Otherwise its gaps say nothing, and nothing is decided
    /// by it.
    bool complete = true;

    bool operator==(const Loops&) const = default;
};

}  // namespace kzq
