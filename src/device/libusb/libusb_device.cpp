#include "device/libusb/libusb_device.h"

#include <libusb.h>

namespace kzq {

LibusbDevice::LibusbDevice(libusb_device* device) : device_(libusb_ref_device(device)) {}

LibusbDevice::~LibusbDevice() {
    libusb_unref_device(device_);
}

}  // namespace kzq
