#pragma once

#include <cstdint>
#include <mutex>
#include <span>
#include <string_view>

namespace kzq {

/// What becomes of a request that the host does not let out to the pedal. Linux reads the recipient out of
/// bmRequestType, where the pedal's protocol keeps the command, and holds wIndex against it: the request for
/// a loop's audio (0xE1) reads as one to an interface, and its wIndex, the channel byte, names none.
///
/// There is another road (UsbtmcRoad), which is tried before `answer`. Any thread.
class HostRefusal {
  public:
    /// Whether the host holds wIndex of such a request against the interfaces that exist.
    static bool concerns(std::uint8_t requestType);

    /// Says no in the pedal's place, so that nobody waits for the audio of a request that never went out, and
    /// logs why, once, with what to install. `obstacle` is what was in the way of the other road. Returns
    /// what came: all of `reply`.
    int answer(std::uint8_t requestType, std::uint16_t index, std::string_view obstacle,
               std::span<std::uint8_t> reply);

  private:
    std::once_flag logged_;
};

}  // namespace kzq
