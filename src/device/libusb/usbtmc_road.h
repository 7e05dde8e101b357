#pragma once

#include <linux/usb/tmc.h>

#include <cstdint>
#include <optional>
#include <span>

#include "device/libusb/device_node.h"
#include "device/libusb/road_patience.h"
#include "platform/trouble.h"

struct libusb_device_handle;

namespace kzq {

/// The way around for a request that the host refuses to send directly: the kernel's usbtmc driver forwards
/// raw requests unchecked. It is bound to the interface only for that one request; audio must not go through
/// it, because it loses some. It has to know the pedal, which the helper run by the udev rules (packaging/)
/// takes care of. One road belongs to one open device; one call at a time.
class UsbtmcRoad {
  public:
    struct Outcome {
        int result = 0;  ///< bytes received, or a UsbResult error
        /// Why the request was not sent; then there is no result. `words` names the driver that has the
        /// interface, if that is why.
        std::optional<Trouble> obstacle = {};
    };

    /// `handle` has claimed `interface`, and has it again afterwards. The kernel gives the pedal 5 s to
    /// answer. Takes about 20 ms, or as long as udev takes to give access, within RoadPatience.
    Outcome control(libusb_device_handle* handle, const DeviceNode& node, int interface,
                    const usbtmc_request& setup, std::span<std::uint8_t> reply);

  private:
    RoadPatience patience_;
};

/// Whether the way is open to a pedal that no program has: tries all of it but the request. What is in the
/// way, if anything. Takes as long.
std::optional<Trouble> tryRoad(const DeviceNode& node, int interface);

}  // namespace kzq
