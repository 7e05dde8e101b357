#pragma once

#include <optional>
#include <string>

#include "loops/facts.h"
#include "loops/frames.h"
#include "loops/slot_number.h"
#include "loops/spoken_length.h"
#include "words/words.h"

namespace kzq {

// What only assistive technology is given: others see it at a glance.

inline std::string saidDisconnected() {
    return words("7306 disconnected");
}

/// "7306 connected, 6 loops, 21 minutes 3 seconds free"
inline std::string saidConnected(std::size_t loops, Frames free) {
    return words(loops, "7306 connected, %n loop, %1 free", "7306 connected, %n loops, %1 free",
                 spokenLength(free));
}

/// "riff staged for Loop 4, 31 seconds, replaces a loop of 12 seconds"
inline std::string saidStaged(const std::string& name, SlotNumber slot, Frames length,
                              const std::optional<Frames>& replaced) {
    const auto loop = loopName(slot);
    return replaced ? words("%1 staged for %2, %3, replaces a loop of %4", name, loop, spokenLength(length),
                            spokenLength(*replaced))
                    : words("%1 staged for %2, %3", name, loop, spokenLength(length));
}

}  // namespace kzq
