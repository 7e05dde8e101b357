#pragma once

#include <cstdint>

namespace kzq {

/// One recorded loop, as the pedal's loop table describes it.
struct Loop {
    std::uint8_t address = 0;        ///< 0 to 19: the pedal's own number, the slot number minus 1
    std::uint32_t samples = 0;       ///< frames
    std::uint8_t tempo = 0;          ///< never 0; passed on unchanged
    std::uint8_t channel = 0;        ///< never 0; sent back when the loop is read
    std::uint32_t bytes = 0;         ///< of these frames, modulo 2^32
    std::uint32_t alignedBytes = 0;  ///< bytes rounded up to 64, modulo 2^32: what the pedal sends

    bool operator==(const Loop&) const = default;
};

}  // namespace kzq
