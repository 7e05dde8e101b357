#include "device/libusb/libusb_handle.h"

#include <libusb.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>
#include <utility>

#include "device/libusb/awaited_pedals.h"
#include "device/libusb/control_transfer.h"
#include "device/libusb/diagnosis.h"
#include "device/libusb/event_turns.h"
#include "device/libusb/host_refusal.h"
#include "device/libusb/hotplug_registry.h"
#include "device/libusb/libusb_device.h"
#include "device/libusb/libusb_result.h"
#include "device/wire.h"
#include "platform/log.h"

namespace kzq {

namespace {

// One large write would need that much of the kernel's USB memory at once (16 MiB for all programs, less on
// some controllers). 64 KiB is a multiple of every packet size, so the bytes on the wire are the same.
constexpr std::size_t writePiece = 65'536;

std::string hexadecimal(std::uint8_t number) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "0x%02X", static_cast<unsigned>(number));
    return text.data();
}

/// Whether the pedal itself said no. A reply that was lost says nothing.
bool isRefusal(const ControlOutcome& outcome, std::span<const std::uint8_t> reply) {
    return outcome.result > static_cast<int>(answerOffset) && reply[answerOffset] == refusal;
}

}  // namespace

LibusbHandle::LibusbHandle(libusb_device_handle* handle, DeviceNode node, PortLock port,
                           unsigned readsInFlight)
    : handle_(handle), node_(std::move(node)), port_(std::move(port)) {
    PortLock::returned();
    if (readsInFlight > 1) {
        reads_.emplace(handle, readsInFlight);
    }
}

LibusbHandle::~LibusbHandle() {
    reads_.reset();
    libusb_close(handle_);
}

int LibusbHandle::kernelDriverActive(int interface) {
    return libusb_kernel_driver_active(handle_, interface);
}

UsbResult LibusbHandle::detachKernelDriver(int interface) {
    const int result = libusb_detach_kernel_driver(handle_, interface);
    logged("detaching the kernel driver", result);
    return static_cast<UsbResult>(result);
}

UsbResult LibusbHandle::claimInterface(int interface) {
    const UsbResult result = logged("claiming the interface", libusb_claim_interface(handle_, interface));
    if (result == usbSuccess) {
        claimed_ = interface;
    } else if (result == usbBusy) {
        await(std::make_shared<LibusbDevice>(libusb_get_device(handle_)));
    }
    return result;
}

UsbResult LibusbHandle::releaseInterface(int interface) {
    takeBackReads();
    claimed_.reset();
    return static_cast<UsbResult>(libusb_release_interface(handle_, interface));
}

/// Whether the system has taken the interface away since it was claimed.
bool LibusbHandle::lost() {
    if (!claimed_) {
        return false;
    }
    const std::lock_guard guard(resetting_);
    // Without an answer the device is gone, which libusb announces.
    if (const auto driver = lost_ ? std::nullopt : node_.driver(*claimed_);
        driver && *driver != programDriver) {
        giveUp("the system took the interface away" + (driver->empty() ? "" : " for the driver " + *driver));
    }
    return lost_;
}

void LibusbHandle::giveUp(std::string_view why) {
    if (std::exchange(lost_, true)) {
        return;
    }
    log(LogCategory::usb, "the pedal is given up and acquired again: " + std::string(why));
    const auto device = std::make_shared<LibusbDevice>(libusb_get_device(handle_));
    announce(device, HotplugEvent::left);
    announce(device, HotplugEvent::arrived);
}

int LibusbHandle::control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                          std::uint16_t index, std::span<std::uint8_t> reply) {
    obstacle_.reset();
    takeBackReads();
    if (lost()) {
        return usbNoDevice;
    }
    const ControlOutcome plain = controlTransfer(handle_, requestType, request, value, index, reply);
    if (requestType == wire::enterLoader.code && !isRefusal(plain, reply)) {
        port_.awaitReturn();  // also after the image, since the loader is asked again
    }
    if (plain.refusedByHost && HostRefusal::concerns(requestType)) {
        return goAround(requestType, request, value, index, reply);
    }
    if (plain.result < 0) {
        logged("request " + hexadecimal(requestType), plain.result);
    }
    return plain.result;
}

int LibusbHandle::goAround(std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                           std::uint16_t index, std::span<std::uint8_t> reply) {
    const usbtmc_request setup{requestType, request, value, index, static_cast<std::uint16_t>(reply.size())};
    const auto outcome =
        claimed_
            ? road_.control(handle_, node_, *claimed_, setup, reply)
            : UsbtmcRoad::Outcome{.obstacle = Trouble{.kind = Trouble::Kind::roadBlocked, .error = EBUSY}};
    if (!outcome.obstacle) {
        return outcome.result;
    }
    obstacle_ = withRemedy(*outcome.obstacle);
    return HostRefusal::answer(requestType, index, *obstacle_, reply);
}

UsbResult LibusbHandle::bulk(std::uint8_t endpoint, std::uint8_t* data, std::size_t length,
                             std::size_t& transferred) {
    if (lost()) {
        return usbNoDevice;
    }
    int moved = 0;
    const int result = libusb_bulk_transfer(handle_, endpoint, data, static_cast<int>(length), &moved, 0);
    transferred = static_cast<std::size_t>(std::max(moved, 0));
    return ended(endpoint, result, transferred, length);
}

UsbResult LibusbHandle::ended(std::uint8_t endpoint, int result, std::size_t transferred,
                              std::size_t length) {
    if (result == LIBUSB_SUCCESS) {
        pieceMoved();
        return usbSuccess;
    }
    if (result == LIBUSB_ERROR_BUSY && claimed_) {
        const std::lock_guard guard(resetting_);
        giveUp("another program took the interface");
    }
    lost();  // then it is a departure, of which nobody may ask again
    return logged("bulk " + hexadecimal(endpoint) + " after " + std::to_string(transferred) + " of " +
                      std::to_string(length) + " bytes",
                  result);
}

UsbResult LibusbHandle::bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into, std::size_t due,
                               std::size_t& transferred) {
    transferred = 0;
    if (into.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        return usbInvalid;
    }
    if (!reads_) {
        return bulk(endpoint, into.data(), into.size(), transferred);
    }
    const std::lock_guard reading(reading_);
    if (lost()) {
        reads_->takeBack();
        return usbNoDevice;
    }
    const int result = reads_->read(endpoint, into, std::max(due, into.size()), transferred);
    return ended(endpoint, result, transferred, into.size());
}

/// Reads ahead of one that is under way end with it.
void LibusbHandle::takeBackReads() {
    if (const std::unique_lock reading(reading_, std::try_to_lock); reading && reads_) {
        reads_->takeBack();
    }
}

UsbResult LibusbHandle::bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                                std::atomic<std::size_t>& transferred) {
    transferred = 0;
    takeBackReads();
    while (transferred < from.size()) {
        const auto piece = from.subspan(transferred, std::min(writePiece, from.size() - transferred));
        std::size_t moved = 0;
        // libusb has one call for both directions; it only reads outgoing data.
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
        auto* const data = const_cast<std::uint8_t*>(piece.data());
        const UsbResult result = bulk(endpoint, data, piece.size(), moved);
        // More than was asked for stays more than was asked for, whichever piece it is.
        transferred += moved > piece.size() ? from.size() + 1 : moved;
        if (result != usbSuccess) {
            return result;
        }
        if (moved != piece.size()) {
            break;
        }
    }
    return usbSuccess;
}

UsbResult LibusbHandle::reset() {
    takeBackReads();
    const std::lock_guard guard(resetting_);
    return lost_ ? usbNoDevice : logged("resetting the device", libusb_reset_device(handle_));
}

}  // namespace kzq
