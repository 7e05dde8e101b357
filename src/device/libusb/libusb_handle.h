#pragma once

#include <mutex>
#include <optional>
#include <string_view>

#include "device/libusb/device_node.h"
#include "device/libusb/port_lock.h"
#include "device/libusb/reads_in_flight.h"
#include "device/libusb/usbtmc_road.h"
#include "device/usb_port.h"

struct libusb_device_handle;

namespace kzq {

/// An open libusb device; closes it.
///
/// The system may take a claimed interface away, as a computer does that wakes up and resets the pedal. That
/// is a departure: no transfer goes on, and the pedal is announced as gone and, at once, as arrived. So no
/// command ever reaches a pedal that has forgotten the one before it.
class LibusbHandle : public UsbHandle {
  public:
    /// Takes ownership of `handle`, whose device `node` has locked, and `port` the place. So many bulk reads
    /// may be under way at once.
    LibusbHandle(libusb_device_handle* handle, DeviceNode node, PortLock port, unsigned readsInFlight);
    ~LibusbHandle() override;

    int kernelDriverActive(int interface) override;
    UsbResult detachKernelDriver(int interface) override;
    UsbResult claimInterface(int interface) override;
    UsbResult releaseInterface(int interface) override;
    int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value, std::uint16_t index,
                std::span<std::uint8_t> reply) override;
    /// One transfer; with reads in flight, the next that was asked for.
    UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                     std::size_t& transferred) override;
    /// As many transfers as needed, one after the other. If one ends early without an error, the call returns
    /// usbSuccess, and `transferred` says how far it got.
    UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                      std::atomic<std::size_t>& transferred) override;
    UsbResult reset() override;
    std::optional<Trouble> obstacle() const override { return obstacle_; }

  private:
    bool lost();
    void giveUp(std::string_view why);
    UsbResult bulk(std::uint8_t endpoint, std::uint8_t* data, std::size_t length, std::size_t& transferred);
    UsbResult ended(std::uint8_t endpoint, int result, std::size_t transferred, std::size_t length);
    void takeBackReads();
    int goAround(std::uint8_t requestType, std::uint8_t request, std::uint16_t value, std::uint16_t index,
                 std::span<std::uint8_t> reply);

    libusb_device_handle* handle_;
    DeviceNode node_;
    PortLock port_;
    std::optional<int> claimed_;
    std::mutex resetting_;  ///< held during a reset, in which libusb gives the interface back for a moment
    bool lost_ = false;     ///< under the mutex
    std::mutex reading_;    ///< held during a read
    std::optional<ReadsInFlight> reads_;
    UsbtmcRoad road_;
    std::optional<Trouble> obstacle_;
};

}  // namespace kzq
