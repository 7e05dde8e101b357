#pragma once

#include <cstdint>
#include <span>

struct libusb_device_handle;

namespace kzq {

struct ControlOutcome {
    int result = 0;              ///< bytes that came, or a UsbResult error
    bool refusedByHost = false;  ///< the host did not let the request out: the device never saw it
};

/// A control transfer without a time limit, as libusb_control_transfer makes it. That call gives the same
/// error for a request that the host refuses and for one that fails on the bus; this one tells them apart.
ControlOutcome controlTransfer(libusb_device_handle* handle, std::uint8_t requestType, std::uint8_t request,
                               std::uint16_t value, std::uint16_t index, std::span<std::uint8_t> reply);

}  // namespace kzq
