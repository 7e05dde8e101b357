#pragma once

#include <memory>

#include "device/usb_port.h"

namespace kzq {

class HostRefusal;

/// The real USB bus: libusb on its default context, which is never given back. Its devices and handles may
/// outlive it; its callbacks do not: none is running or comes any more once its destructor has returned, so
/// it must not be destroyed by a hot-plug callback. All members may be called from any thread; `initialize`
/// comes first.
class LibusbPort : public UsbPort {
  public:
    LibusbPort();
    ~LibusbPort() override;

    UsbResult initialize() override;
    UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                              HotplugCallback callback) override;
    UsbResult handleEvents() override;
    /// usbAccess: the user may not open it. usbNoDevice: it left, or (by numbers) there is none.
    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) override;
    std::unique_ptr<UsbHandle> open(std::uint16_t vendor, std::uint16_t product, UsbResult& result) override;

  private:
    struct Hotplug;

    UsbResult started_ = usbOther;  ///< without libusb nothing is called but this object
    std::unique_ptr<Hotplug> hotplug_;
    std::shared_ptr<HostRefusal> refusal_;  ///< shared with the handles
};

}  // namespace kzq
