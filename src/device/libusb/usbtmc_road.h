#pragma once

#include <cstdint>
#include <span>
#include <string>

struct libusb_device_handle;

namespace kzq {

/// The way around for a request that the host refuses to send directly: the kernel's usbtmc driver forwards
/// raw requests unchecked. It is bound to the interface only for that one request; audio must not go through
/// it, because it loses some. It has to know the pedal, which the helper run by the udev rules (packaging/)
/// takes care of. One road belongs to one open device; one call at a time.
class UsbtmcRoad {
  public:
    struct Outcome {
        bool taken = false;    ///< otherwise the request was not sent
        int result = 0;        ///< if taken: bytes received, or a UsbResult error
        std::string obstacle;  ///< if not taken: why, as the end of a sentence
    };

    /// `handle` has claimed `interface`, and has it again afterwards. The kernel gives the pedal 5 s to
    /// answer. Takes about 20 ms; if the access rule is missing, longer once, but less than a second.
    Outcome control(libusb_device_handle* handle, int interface, std::uint8_t requestType,
                    std::uint8_t request, std::uint16_t value, std::uint16_t index,
                    std::span<std::uint8_t> reply);

  private:
    std::string closed_;  ///< an obstacle that takes time to detect, and stays until the pedal is reconnected
};

}  // namespace kzq
