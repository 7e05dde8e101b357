#pragma once

#include <memory>
#include <utility>

#include "device/usb_port.h"

namespace kzq::test {

/// Hands every call on to another handle.
class PassingHandle : public UsbHandle {
  public:
    explicit PassingHandle(std::unique_ptr<UsbHandle> handle) : handle_(std::move(handle)) {}

    int kernelDriverActive(int interface) override { return handle_->kernelDriverActive(interface); }
    UsbResult detachKernelDriver(int interface) override { return handle_->detachKernelDriver(interface); }
    UsbResult claimInterface(int interface) override { return handle_->claimInterface(interface); }
    UsbResult releaseInterface(int interface) override { return handle_->releaseInterface(interface); }
    int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value, std::uint16_t index,
                std::span<std::uint8_t> reply) override {
        return handle_->control(requestType, request, value, index, reply);
    }
    UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                     std::size_t& transferred) override {
        return handle_->bulkIn(endpoint, into, due, transferred);
    }
    UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                      std::atomic<std::size_t>& transferred) override {
        return handle_->bulkOut(endpoint, from, transferred);
    }
    UsbResult reset() override { return handle_->reset(); }

  private:
    const std::unique_ptr<UsbHandle> handle_;
};

}  // namespace kzq::test
