#pragma once

#include "device/usb_port.h"

namespace kzq {

/// The hot-plug callbacks that are registered with libusb. libusb may be about to make a call when its
/// registration is withdrawn, so it is handed a number instead of an object, and the numbers outlive every
/// thread.
using HotplugTicket = std::uintptr_t;

/// Registers with libusb; 0 when that failed, with the reason in `result`.
HotplugTicket addHotplug(HotplugEvent event, const HotplugFilter& filter, HotplugCallback callback,
                         UsbResult& result);
/// Withdraws a registration; on return its callback is not running and is not called again.
void removeHotplug(HotplugTicket ticket);

}  // namespace kzq
