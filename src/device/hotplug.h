#pragma once

#include "device/usb_port.h"

namespace kzq {

/// The hot-plug callbacks. They run on any thread that handles USB events (or inside the registration) and
/// only hand the device, with its reference, to the main queue. They return 0, which keeps them registered.
int Plugged(const UsbDevicePointer& device, HotplugEvent event);
int Unplugged(const UsbDevicePointer& device, HotplugEvent event);

}  // namespace kzq
