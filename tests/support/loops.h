#pragma once

#include "device/simulator/pedal_memory.h"
#include "loops/facts.h"

namespace kzq::test {

/// A loop of so many frames whose bytes count up from `first`.
inline simulator::StoredLoop loopOf(std::uint32_t frames, std::uint8_t first) {
    simulator::StoredLoop loop{Bytes(std::size_t{frames} * frameBytes), 100, first};
    for (auto& byte : loop.audio) {
        byte = first++;
    }
    return loop;
}

}  // namespace kzq::test
