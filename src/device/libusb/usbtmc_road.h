#pragma once

#include <cstdint>
#include <span>
#include <string>

struct libusb_device_handle;

namespace kzq {

/// The road of a request that the host does not let out by the plain one: the kernel's driver usbtmc forwards
/// raw requests unread. It is bound to the interface for the length of that one request; audio must not go
/// through it, for it loses some. It has to know the pedal, which is the work of the helper that the udev
/// rules run (packaging/). One road belongs to one open device; one call at a time.
class UsbtmcRoad {
  public:
    struct Outcome {
        bool taken = false;    ///< otherwise the request has not gone out
        int result = 0;        ///< when taken: bytes that came, or a UsbResult error
        std::string obstacle;  ///< when not taken: why, as the end of a sentence
    };

    /// `handle` has claimed `interface`, and has it again in the end. The kernel gives the pedal 5 s to
    /// answer. Takes about 20 ms; longer, but less than a second, where the access rule is missing, and that
    /// only once.
    Outcome control(libusb_device_handle* handle, int interface, std::uint8_t requestType,
                    std::uint8_t request, std::uint16_t value, std::uint16_t index,
                    std::span<std::uint8_t> reply);

  private:
    std::string
        closed_;  ///< an obstacle that costs time to find, and stays until the pedal is plugged in again
};

}  // namespace kzq
