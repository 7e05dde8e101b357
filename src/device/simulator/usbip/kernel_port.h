#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "device/simulator/usbip/usbip_wire.h"

namespace kzq::simulator::usbip {

/// Where devices are plugged into the kernel's virtual USB host (module vhci-hcd).
std::filesystem::path kernelHost();

/// The number of a free high-speed port in the text of the host's "status" file.
std::optional<unsigned> freePort(std::string_view status);

/// Plugs the device at the other end of `socket` (a stream socket, which the kernel takes over) into this
/// computer. Returns empty, or a sentence that says why not. Needs root.
std::string plugIntoKernel(const std::filesystem::path& host, int socket, const DeviceRecord& record);

}  // namespace kzq::simulator::usbip
