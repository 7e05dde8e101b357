#pragma once

#include <mutex>

#include "device/simulator/simulated_pedal.h"

namespace kzq::simulator {

/// Outlives the pedal, so that a task which waits on the main queue finds out that the pedal is no more.
struct SimulatedPedal::Life {
    std::mutex mutex;
    SimulatedPedal* pedal = nullptr;
};

}  // namespace kzq::simulator
