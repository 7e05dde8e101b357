#pragma once

#include <memory>
#include <optional>

#include "device/libusb/usbtmc_road.h"
#include "device/usb_port.h"

struct libusb_device_handle;

namespace kzq {

class HostRefusal;

/// An open libusb device; closes it.
class LibusbHandle : public UsbHandle {
  public:
    /// Takes ownership of `handle`.
    LibusbHandle(libusb_device_handle* handle, std::shared_ptr<HostRefusal> refusal);
    ~LibusbHandle() override;

    int kernelDriverActive(int interface) override;
    UsbResult detachKernelDriver(int interface) override;
    UsbResult claimInterface(int interface) override;
    UsbResult releaseInterface(int interface) override;
    int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value, std::uint16_t index,
                std::span<std::uint8_t> reply) override;
    /// One transfer.
    UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t& transferred) override;
    /// As many transfers as needed, one after the other. If one ends early without an error, the call returns
    /// usbSuccess, and `transferred` says how far it got.
    UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                      std::size_t& transferred) override;
    UsbResult reset() override;

  private:
    libusb_device_handle* handle_;
    std::optional<int> claimed_;
    UsbtmcRoad road_;
    std::shared_ptr<HostRefusal> refusal_;
};

}  // namespace kzq
