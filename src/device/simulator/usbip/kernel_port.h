#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "device/simulator/usbip/usbip_wire.h"

namespace kzq::simulator::usbip {

/// Where the kernel's virtual USB host (module vhci-hcd) is told what is plugged into it.
std::filesystem::path kernelHost();

/// The number of a free high-speed port in the text of the host's "status" file.
std::optional<unsigned> freePort(std::string_view status);

/// Plugs what answers at the other end of `socket` (a stream socket, which the kernel keeps for itself) into
/// this computer. Empty, or a sentence that says why not. Needs root.
std::string plugIntoKernel(const std::filesystem::path& host, int socket, const DeviceRecord& record);

}  // namespace kzq::simulator::usbip
