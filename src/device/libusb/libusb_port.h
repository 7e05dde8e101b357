#pragma once

#include <memory>

#include "device/usb_port.h"

namespace kzq {

/// The real USB bus: libusb on its default context, which is never freed. Its devices and handles may
/// outlive it; its callbacks do not: none runs once the destructor has returned, so it must not be
/// destroyed by a hot-plug callback. All members may be called from any thread, `initialize` first.
class LibusbPort : public UsbPort {
  public:
    /// `readsInFlight`, 1 to mostReadsInFlight: so many bulk reads are submitted at once where more than one
    /// is due.
    explicit LibusbPort(unsigned readsInFlight = 1);
    ~LibusbPort() override;

    UsbResult initialize() override;
    UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                              HotplugCallback callback) override;
    UsbResult handleEvents() override;
    /// usbAccess: the user may not open it. usbBusy: one of our programs has it. In both cases a device that
    /// was given is announced again when that is over. usbNoDevice: it left, or (by numbers) there is none.
    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) override;
    std::unique_ptr<UsbHandle> open(std::uint16_t vendor, std::uint16_t product, UsbResult& result) override;

  private:
    struct Hotplug;

    const unsigned readsInFlight_;
    UsbResult started_ = usbOther;  ///< if libusb did not start, it is never called
    std::unique_ptr<Hotplug> hotplug_;
};

}  // namespace kzq
