#pragma once

#include "device/usb_port.h"

struct libusb_device;

namespace kzq {

/// A reference to a libusb device. Without it the device would be freed when it leaves the bus, and
/// opening it afterwards would read freed memory instead of failing.
class LibusbDevice : public UsbDevice {
  public:
    explicit LibusbDevice(libusb_device* device);
    ~LibusbDevice() override;

    libusb_device* get() const { return device_; }

  private:
    libusb_device* device_;
};

}  // namespace kzq
