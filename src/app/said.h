#pragma once

#include <optional>
#include <string>

#include "loops/facts.h"
#include "loops/frames.h"
#include "loops/slot_number.h"
#include "loops/spoken_length.h"

namespace kzq {

// What only assistive technology is given: others see it at a glance.

inline constexpr auto saidDisconnected = "7306 disconnected";

/// "7306 connected, 6 loops, 21 minutes 3 seconds free"
inline std::string saidConnected(std::size_t loops, Frames free) {
    return "7306 connected, " + loopsText(loops) + ", " + spokenLength(free) + " free";
}

/// "riff staged for Loop 4, 31 seconds, replaces a loop of 12 seconds"
inline std::string saidStaged(const std::string& name, SlotNumber slot, Frames length,
                              const std::optional<Frames>& replaced) {
    return name + " staged for " + loopName(slot) + ", " + spokenLength(length) +
           (replaced ? ", replaces a loop of " + spokenLength(*replaced) : "");
}

}  // namespace kzq
