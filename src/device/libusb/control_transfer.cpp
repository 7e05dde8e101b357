#include "device/libusb/control_transfer.h"

#include <libusb.h>

#include <algorithm>
#include <limits>
#include <vector>

#include "device/libusb/transfer.h"

namespace kzq {

ControlOutcome controlTransfer(libusb_device_handle* handle, std::uint8_t requestType, std::uint8_t request,
                               std::uint16_t value, std::uint16_t index, std::span<std::uint8_t> reply) {
    if (reply.size() > std::numeric_limits<std::uint16_t>::max()) {
        return {.result = usbInvalid};
    }
    Transfer transfer;
    if (transfer.raw() == nullptr) {
        return {.result = usbNoMemory};
    }

    std::vector<std::uint8_t> buffer(LIBUSB_CONTROL_SETUP_SIZE + reply.size());
    libusb_fill_control_setup(buffer.data(), requestType, request, value, index,
                              static_cast<std::uint16_t>(reply.size()));
    libusb_fill_control_transfer(transfer.raw(), handle, buffer.data(), nullptr, nullptr, 0);
    // The kernel's own refusals all show here, at once, as IO; bus errors come with the completion.
    if (const int result = transfer.submit(); result < 0) {
        return {.result = result, .refusedByHost = result == LIBUSB_ERROR_IO};
    }

    transfer.wait();
    std::copy_n(buffer.begin() + LIBUSB_CONTROL_SETUP_SIZE, std::min(transfer.moved(), reply.size()),
                reply.begin());
    const UsbResult result = transfer.result();
    return {.result = result == usbSuccess ? static_cast<int>(transfer.moved()) : result};
}

}  // namespace kzq
