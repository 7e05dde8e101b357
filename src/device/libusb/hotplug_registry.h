#pragma once

#include <memory>

#include "device/usb_port.h"

namespace kzq {

class LibusbDevice;

/// The hot-plug callbacks registered with libusb. libusb may be about to call one when it is deregistered, so
/// libusb gets a number instead of an object, and the numbers outlive every thread.
using HotplugTicket = std::uintptr_t;

/// Registers with libusb; 0 if that failed, with the reason in `result`.
HotplugTicket addHotplug(HotplugEvent event, const HotplugFilter& filter, HotplugCallback callback,
                         UsbResult& result);
/// Deregisters; on return the callback is not running and is not called again.
void removeHotplug(HotplugTicket ticket);
/// Calls the callbacks for an event of which libusb does not know. Any thread, but not inside a callback.
void announce(const std::shared_ptr<LibusbDevice>& device, HotplugEvent event);

}  // namespace kzq
