#pragma once

#include <cstdint>
#include <span>

struct libusb_device_handle;

namespace kzq {

struct ControlOutcome {
    int result = 0;              ///< bytes received, or a UsbResult error
    bool refusedByHost = false;  ///< the host blocked the request: the device never saw it
};

/// A control transfer without a time limit, like libusb_control_transfer. That call returns the same error
/// for a request that the host refuses and for one that fails on the bus; this one distinguishes them.
ControlOutcome controlTransfer(libusb_device_handle* handle, std::uint8_t requestType, std::uint8_t request,
                               std::uint16_t value, std::uint16_t index, std::span<std::uint8_t> reply);

}  // namespace kzq
