#pragma once

#include <cstdint>
#include <optional>

#include "audio/wave.h"
#include "device/simulator/simulated_pedal.h"

namespace kzq::simulator::usbip {

/// The requests that every USB device must answer. Not synchronised.
class StandardRequests {
  public:
    /// Whether the request is not one of the pedal's own commands.
    static bool concern(const SetupPacket& setup);

    /// The reply, not longer than wLength; nothing if the pedal stalls the request.
    std::optional<Bytes> answer(const SetupPacket& setup);
    /// Whether the request (re)starts the pedal's transfers. That is all it notices of a port reset: the
    /// computer's side does the reset itself and then configures the device again.
    static bool restarts(const SetupPacket& setup);

  private:
    std::optional<Bytes> answerDevice(const SetupPacket& setup);
    static std::optional<Bytes> answerInterface(const SetupPacket& setup);
    static std::optional<Bytes> answerEndpoint(const SetupPacket& setup);

    std::uint8_t configuration_ = 0;
};

}  // namespace kzq::simulator::usbip
