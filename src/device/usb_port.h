#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>

#include "platform/fixed.h"
#include "platform/trouble.h"

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

/// One pedal on the bus. It holds a reference from the arrival on, so opening it after the pedal has left is
/// safe (and fails).
class UsbDevice : Fixed {
  public:
    virtual ~UsbDevice() = default;
};
using UsbDevicePointer = std::shared_ptr<UsbDevice>;

/// An open device; destroying it closes it. Transfers have no time limit: they end when done, when
/// they fail, or at once when the device leaves the bus or is reset. `reset` may be called while another
/// thread is in a transfer; all other calls come one at a time.
class UsbHandle : Fixed {
  public:
    virtual ~UsbHandle() = default;

    /// 1 if a kernel driver holds the interface, 0 if none does, or a UsbResult error.
    virtual int kernelDriverActive(int interface) = 0;
    /// As the system answers, which a caller takes as a truth value: may be more than 0.
    virtual UsbResult detachKernelDriver(int interface) = 0;
    virtual UsbResult claimInterface(int interface) = 0;
    virtual UsbResult releaseInterface(int interface) = 0;

    /// A control request whose reply fills `reply` (its size is wLength). Returns the bytes received, or a
    /// UsbResult error; what came before an error is in `reply`.
    virtual int control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                        std::uint16_t index, std::span<std::uint8_t> reply) = 0;
    /// `transferred` is always set, even on failure, and may be more than requested. `due` is how many bytes
    /// the pedal has still to send, those for `into` included: a handle may ask for them ahead. What a caller
    /// then does not read is given up before any other call.
    virtual UsbResult bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                             std::size_t& transferred) = 0;
    /// Here `transferred` grows while it goes, for other threads.
    virtual UsbResult bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                              std::atomic<std::size_t>& transferred) = 0;
    virtual UsbResult reset() = 0;
    /// Why the last `control` did not reach the pedal and its reply is a refusal that the host gave in the
    /// pedal's place; nothing if the reply is the pedal's own.
    virtual std::optional<Trouble> obstacle() const { return std::nullopt; }
};

enum class HotplugEvent { arrived, left };

/// More bulk reads at once bring nothing.
inline constexpr unsigned mostReadsInFlight = 32;

/// Which devices a hot-plug callback is called for.
struct HotplugFilter {
    static constexpr int anyClass = -1;

    std::uint16_t vendor = 0;
    std::uint16_t product = 0;
    int deviceClass = anyClass;
    bool enumerate = false;  ///< announce devices that are already there, during the registration
};

/// Returns 0 to stay registered. Called on the thread that runs handleEvents or on that of a transfer, and
/// when enumerating on the registering thread; it must not call back into the port.
using HotplugCallback = std::function<int(const UsbDevicePointer& device, HotplugEvent event)>;

/// The seam between the device link and USB: the real bus (device/libusb) or the simulated pedal
/// (device/simulator). Host-specific details live behind it.
class UsbPort : Fixed {
  public:
    virtual ~UsbPort() = default;

    /// Called once, before anything else.
    virtual UsbResult initialize() = 0;
    virtual UsbResult registerHotplug(HotplugEvent event, const HotplugFilter& filter,
                                      HotplugCallback callback) = 0;
    /// Waits for events and delivers them; called in a loop on a thread that does nothing else.
    virtual UsbResult handleEvents() = 0;

    /// Both set `result`, and return null exactly if it is not usbSuccess.
    virtual std::unique_ptr<UsbHandle> open(const UsbDevicePointer& device, UsbResult& result) = 0;
    virtual std::unique_ptr<UsbHandle> open(std::uint16_t vendor, std::uint16_t product,
                                            UsbResult& result) = 0;
};

}  // namespace kzq
