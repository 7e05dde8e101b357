#pragma once

#include <cstdint>
#include <span>

#include "platform/trouble.h"

namespace kzq {

/// Handles requests that the host refuses to send. Linux takes the recipient from bmRequestType, where the
/// pedal's protocol has the command, and checks wIndex against it: the request for a loop's audio (0xE1)
/// looks like one to an interface, and its wIndex, the channel byte, names an interface that does not exist.
///
/// UsbtmcRoad is a way around this; it is tried before `answer`. Any thread.
class HostRefusal {
  public:
    /// Whether the host checks wIndex of such a request against the existing interfaces.
    static bool concerns(std::uint8_t requestType);

    /// Fills in a refusal in the pedal's place, so that nobody waits for the audio of a request that was
    /// never sent, and logs it. `obstacle` is why the way around failed. Returns the length of `reply`.
    static int answer(std::uint8_t requestType, std::uint16_t index, const Trouble& obstacle,
                      std::span<std::uint8_t> reply);
};

}  // namespace kzq
