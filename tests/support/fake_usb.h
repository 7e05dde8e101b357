#pragma once

#include <array>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "device/usb_port.h"
#include "device/wire.h"
#include "platform/executor.h"

namespace kzq::test {

/// A scripted USB port that records every call; for what the simulated pedal would never do.
class FakeUsb : public UsbPort {
  public:
    struct Device : UsbDevice {};
    using Reply = std::vector<std::uint8_t>;

    explicit FakeUsb(Executor& executor) : executor_(executor) {}

    std::vector<std::string> calls;
    std::vector<std::string> filters;
    UsbResult openResult = usbSuccess;
    int driverActive = 0;
    UsbResult detachResult = usbSuccess;
    UsbResult claimResult = usbSuccess;
    UsbDevicePointer device = std::make_shared<Device>();
    bool present = false;   ///< on the bus when the callbacks are registered
    bool throwing = false;  ///< claiming throws
    /// Replies by command; commands without one get zeros and an error.
    std::map<std::uint8_t, Reply> replies;
    /// What a bulk transfer of `size` bytes does; if not set, it transfers everything.
    std::function<UsbResult(std::size_t size, std::size_t& transferred)> bulk;

    void arrive() { callbacks_.at(0)(device, HotplugEvent::arrived); }
    void leave() { callbacks_.at(1)(device, HotplugEvent::left); }
    void note(const std::string& call) { calls.push_back(call); }

    static Reply reply(char answer, char stage = 0, std::uint8_t sequence = 0) {
        return {0, 0, 0, 0, static_cast<std::uint8_t>(answer), static_cast<std::uint8_t>(stage), sequence, 0};
    }

    UsbResult initialize() override {
        note("initialize");
        return usbSuccess;
    }

    UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                              HotplugCallback callback) override {
        filters.push_back((event == HotplugEvent::arrived ? "arrived " : "left ") +
                          std::to_string(filter.vendor) + ":" + std::to_string(filter.product) + " class " +
                          std::to_string(filter.deviceClass) + (filter.enumerate ? " enumerate" : ""));
        if (event == HotplugEvent::arrived && present) {
            callback(device, event);
        }
        callbacks_.push_back(std::move(callback));
        return usbSuccess;
    }

    /// Hot-plug events come from `arrive` and `leave`; the thread that waits for them here waits forever.
    UsbResult handleEvents() override {
        std::unique_lock lock(never_);
        executor_.wait(lock, changed_, [] { return false; });
        return usbSuccess;
    }

    std::unique_ptr<UsbHandle> open(const UsbDevicePointer& which, UsbResult& result) override {
        note(which == device ? "open" : "open another");
        return opened(result);
    }

    std::unique_ptr<UsbHandle> open(std::uint16_t vendor, std::uint16_t product, UsbResult& result) override {
        note("open " + std::to_string(vendor) + ":" + std::to_string(product));
        return opened(result);
    }

  private:
    class Handle : public UsbHandle {
      public:
        explicit Handle(FakeUsb& usb) : usb_(usb) {}
        ~Handle() override { usb_.note("close"); }

        int kernelDriverActive(int interface) override {
            usb_.note("driver " + std::to_string(interface));
            return usb_.driverActive;
        }
        UsbResult detachKernelDriver(int interface) override {
            usb_.note("detach " + std::to_string(interface));
            return usb_.detachResult;
        }
        UsbResult claimInterface(int interface) override {
            usb_.note("claim " + std::to_string(interface));
            if (usb_.throwing) {
                throw std::runtime_error("no room");
            }
            return usb_.claimResult;
        }
        UsbResult releaseInterface(int interface) override {
            usb_.note("release " + std::to_string(interface));
            return usbSuccess;
        }
        int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value, std::uint16_t index,
                    std::span<std::uint8_t> into) override {
            std::array<char, 64> text{};
            std::snprintf(text.data(), text.size(), "%02X/%02X %u %u [%zu]", requestType, request, value,
                          index, into.size());
            usb_.note(text.data());
            const auto found = usb_.replies.find(requestType);
            if (found == usb_.replies.end()) {
                return usbIo;
            }
            const auto size = std::min(into.size(), found->second.size());
            std::copy_n(found->second.begin(), size, into.begin());
            return static_cast<int>(size);
        }
        UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t /*due*/,
                         std::size_t& transferred) override {
            return move(endpoint, into.size(), transferred);
        }
        UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                          std::atomic<std::size_t>& transferred) override {
            std::size_t moved = 0;
            const auto result = move(endpoint, from.size(), moved);
            transferred = moved;
            return result;
        }
        UsbResult reset() override {
            usb_.note("reset");
            return usbSuccess;
        }

      private:
        UsbResult move(std::uint8_t endpoint, std::size_t size, std::size_t& transferred) {
            usb_.note((endpoint == pedalBulkIn    ? "in "
                       : endpoint == pedalBulkOut ? "out "
                                                  : "astray ") +
                      std::to_string(size));
            transferred = size;
            return usb_.bulk ? usb_.bulk(size, transferred) : usbSuccess;
        }

        FakeUsb& usb_;
    };

    std::unique_ptr<UsbHandle> opened(UsbResult& result) {
        result = openResult;
        return result == usbSuccess ? std::make_unique<Handle>(*this) : nullptr;
    }

    Executor& executor_;
    std::mutex never_;
    Condition changed_;
    std::vector<HotplugCallback> callbacks_;
};

}  // namespace kzq::test
