#pragma once

#include <string_view>

#include "device/usb_port.h"

namespace kzq {

/// libusb's `result` as a UsbResult; a failure is logged as "what: LIBUSB_ERROR_...".
UsbResult logged(std::string_view what, int result);

}  // namespace kzq
