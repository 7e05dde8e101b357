#pragma once

#include <mutex>

#include "device/simulator/simulated_pedal.h"

namespace kzq::simulator {

/// Outlives the pedal, so that a task on the main queue can see that the pedal no longer exists.
struct SimulatedPedal::Life {
    std::mutex mutex;
    SimulatedPedal* pedal = nullptr;
};

}  // namespace kzq::simulator
