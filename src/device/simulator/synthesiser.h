#pragma once

#include "device/simulator/pedal_memory.h"

namespace kzq::simulator {

/// A loop of music-like material: a bass line, a chord and a beat at the loop's tempo, different for each
/// address and the same every time. `seconds` is rounded to whole beats.
StoredLoop synthesiseLoop(std::uint8_t address, double seconds, std::uint8_t tempo);

/// What a simulated pedal holds by default: a few loops of some seconds in scattered slots.
PedalMemory demonstrationMemory();

}  // namespace kzq::simulator
