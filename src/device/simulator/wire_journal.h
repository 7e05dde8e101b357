#pragma once

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "platform/executor.h"

namespace kzq::simulator {

/// One thing that happened on the simulated wire.
struct WireEvent {
    enum class Kind { control, bulkIn, bulkOut, reset, plugged, unplugged };

    Kind kind = Kind::control;
    std::uint8_t code = 0;  ///< bmRequestType of a control request
    std::uint16_t value = 0;
    std::uint16_t index = 0;
    std::uint32_t length = 0;       ///< bytes asked for (control, bulk in) or offered (bulk out)
    std::uint32_t transferred = 0;  ///< bytes that moved
    Executor::TimePoint time;
};

}  // namespace kzq::simulator
