#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace kzq {

/// Outcome of a USB call: 0 or a negative error, with the numbers that libusb uses.
enum UsbResult : int {
    usbSuccess = 0,
    usbIo = -1,
    usbInvalid = -2,
    usbAccess = -3,
    usbNoDevice = -4,
    usbNotFound = -5,
    usbBusy = -6,
    usbTimeout = -7,
    usbOverflow = -8,
    usbPipe = -9,
    usbInterrupted = -10,
    usbNoMemory = -11,
    usbNotSupported = -12,
    usbOther = -99
};

/// One pedal on the bus, for as long as somebody keeps it: a reference is held from the arrival on, so it may
/// be opened (and then fails) after the pedal has left.
class UsbDevice {
  public:
    UsbDevice() = default;
    UsbDevice(const UsbDevice&) = delete;
    UsbDevice& operator=(const UsbDevice&) = delete;
    UsbDevice(UsbDevice&&) = delete;
    UsbDevice& operator=(UsbDevice&&) = delete;
    virtual ~UsbDevice() = default;
};
using UsbDevicePointer = std::shared_ptr<UsbDevice>;

/// An open device; destroying it closes it. Transfers have no time limit: they end when they are done, when
/// they fail, and at once when the device leaves the bus or is reset. `reset` may be called while another
/// thread is in a transfer; all other calls come one at a time.
class UsbHandle {
  public:
    UsbHandle() = default;
    UsbHandle(const UsbHandle&) = delete;
    UsbHandle& operator=(const UsbHandle&) = delete;
    UsbHandle(UsbHandle&&) = delete;
    UsbHandle& operator=(UsbHandle&&) = delete;
    virtual ~UsbHandle() = default;

    /// 1 when a kernel driver holds the interface, 0 when none does, or a UsbResult error.
    virtual int kernelDriverActive(int interface) = 0;
    virtual UsbResult detachKernelDriver(int interface) = 0;
    virtual UsbResult claimInterface(int interface) = 0;
    virtual UsbResult releaseInterface(int interface) = 0;

    /// A control request whose reply fills `reply` (its size is wLength). Returns the bytes that came, or a
    /// UsbResult error; what came before an error stands in `reply`.
    virtual int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                        std::uint16_t index, std::span<std::uint8_t> reply) = 0;
    /// `transferred` is set in every case, also on failure.
    virtual UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into,
                             std::size_t& transferred) = 0;
    virtual UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                              std::size_t& transferred) = 0;
    virtual UsbResult reset() = 0;
};

enum class HotplugEvent { arrived, left };

/// Which devices a hot-plug callback hears of.
struct HotplugFilter {
    static constexpr int anyClass = -1;

    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    int deviceClass = anyClass;
    bool enumerate = false;  ///< announce devices that are already there, inside the registration
};

/// Returns 0 to stay registered. Called on the thread that runs handleEvents, or, when enumerating, on the
/// thread that registers; it must not call back into the port.
using HotplugCallback = std::function<int(const UsbDevicePointer& device, HotplugEvent event)>;

/// The seam between the device link and USB: the real bus (device/libusb) or the simulated pedal
/// (device/simulator). Whatever the host system needs beyond what the pedal expects lives behind it.
class UsbPort {
  public:
    UsbPort() = default;
    UsbPort(const UsbPort&) = delete;
    UsbPort& operator=(const UsbPort&) = delete;
    UsbPort(UsbPort&&) = delete;
    UsbPort& operator=(UsbPort&&) = delete;
    virtual ~UsbPort() = default;

    /// Called once, before anything else.
    virtual UsbResult initialize() = 0;
    virtual UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                                      HotplugCallback callback) = 0;
    /// Waits for events and delivers them; called over and over on a thread that does nothing else.
    virtual UsbResult handleEvents() = 0;

    /// Both set `result`, and return null exactly when it is not usbSuccess.
    virtual std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) = 0;
    virtual std::unique_ptr<UsbHandle> open(std::uint16_t vendor, std::uint16_t product,
                                            UsbResult& result) = 0;
};

}  // namespace kzq
