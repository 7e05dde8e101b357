#include "device/libusb/libusb_handle.h"

#include <libusb.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <string>
#include <utility>

#include "device/libusb/control_transfer.h"
#include "device/libusb/host_refusal.h"
#include "device/libusb/libusb_result.h"

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

UsbResult bulk(libusb_device_handle* handle, std::uint8_t endpoint, std::uint8_t* data, std::size_t length,
               std::size_t& transferred) {
    int moved = 0;
    const int result = libusb_bulk_transfer(handle, endpoint, data, static_cast<int>(length), &moved, 0);
    transferred = static_cast<std::size_t>(std::max(moved, 0));
    if (result == LIBUSB_SUCCESS) {
        return usbSuccess;
    }
    return logged("bulk " + hexadecimal(endpoint) + " after " + std::to_string(transferred) + " of " +
                      std::to_string(length) + " bytes",
                  result);
}

}  // namespace

LibusbHandle::LibusbHandle(libusb_device_handle* handle, std::shared_ptr<HostRefusal> refusal)
    : handle_(handle), refusal_(std::move(refusal)) {}

LibusbHandle::~LibusbHandle() {
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
    }
    return result;
}

UsbResult LibusbHandle::releaseInterface(int interface) {
    claimed_.reset();
    return static_cast<UsbResult>(libusb_release_interface(handle_, interface));
}

int LibusbHandle::control(std::uint8_t requestType, std::uint8_t request, std::uint16_t value,
                          std::uint16_t index, std::span<std::uint8_t> reply) {
    const ControlOutcome plain = controlTransfer(handle_, requestType, request, value, index, reply);
    if (plain.refusedByHost && HostRefusal::concerns(requestType)) {
        const auto outcome =
            claimed_ ? road_.control(handle_, *claimed_, requestType, request, value, index, reply)
                     : UsbtmcRoad::Outcome{.obstacle = "the interface is not claimed"};
        return outcome.taken ? outcome.result : refusal_->answer(requestType, index, outcome.obstacle, reply);
    }
    if (plain.result < 0) {
        logged("request " + hexadecimal(requestType), plain.result);
    }
    return plain.result;
}

UsbResult LibusbHandle::bulkIn(std::uint8_t endpoint, std::span<std::uint8_t> into,
                               std::size_t& transferred) {
    transferred = 0;
    if (into.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        return usbInvalid;
    }
    return bulk(handle_, endpoint, into.data(), into.size(), transferred);
}

UsbResult LibusbHandle::bulkOut(std::uint8_t endpoint, std::span<const std::uint8_t> from,
                                std::size_t& transferred) {
    transferred = 0;
    while (transferred < from.size()) {
        const auto piece = from.subspan(transferred, std::min(writePiece, from.size() - transferred));
        std::size_t moved = 0;
        // libusb has one call for both directions; it only reads outgoing data.
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
        auto* const data = const_cast<std::uint8_t*>(piece.data());
        const UsbResult result = bulk(handle_, endpoint, data, piece.size(), moved);
        // More than was asked for stays more than was asked for, whichever piece it is.
        transferred = moved > piece.size() ? from.size() + (moved - piece.size()) : transferred + moved;
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
    return logged("resetting the device", libusb_reset_device(handle_));
}

}  // namespace kzq
