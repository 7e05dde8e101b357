#include "device/libusb/control_transfer.h"

#include <libusb.h>

#include <algorithm>
#include <atomic>
#include <limits>
#include <memory>
#include <vector>

#include "device/usb_port.h"

namespace kzq {

namespace {

struct FreeTransfer {
    void operator()(libusb_transfer* transfer) const { libusb_free_transfer(transfer); }
};

void LIBUSB_CALL finished(libusb_transfer* transfer) {
    std::atomic_ref(*static_cast<int*>(transfer->user_data)).store(1, std::memory_order_release);
}

void waitFor(libusb_transfer& transfer, int& completed) {
    while (std::atomic_ref(completed).load(std::memory_order_acquire) == 0) {
        const int result = libusb_handle_events_completed(nullptr, &completed);
        // The buffers belong to libusb until the transfer has ended, so it cannot be left before that.
        if (result < 0 && result != LIBUSB_ERROR_INTERRUPTED) {
            libusb_cancel_transfer(&transfer);
        }
    }
}

int resultOf(const libusb_transfer& transfer) {
    switch (transfer.status) {
        case LIBUSB_TRANSFER_COMPLETED:
            return transfer.actual_length;
        case LIBUSB_TRANSFER_TIMED_OUT:
            return usbTimeout;
        case LIBUSB_TRANSFER_STALL:
            return usbPipe;
        case LIBUSB_TRANSFER_NO_DEVICE:
            return usbNoDevice;
        case LIBUSB_TRANSFER_OVERFLOW:
            return usbOverflow;
        case LIBUSB_TRANSFER_ERROR:
        case LIBUSB_TRANSFER_CANCELLED:
            return usbIo;
    }
    return usbOther;
}

}  // namespace

ControlOutcome controlTransfer(libusb_device_handle* handle, std::uint8_t requestType, std::uint8_t request,
                               std::uint16_t value, std::uint16_t index, std::span<std::uint8_t> reply) {
    if (reply.size() > std::numeric_limits<std::uint16_t>::max()) {
        return {.result = usbInvalid};
    }
    const std::unique_ptr<libusb_transfer, FreeTransfer> transfer(libusb_alloc_transfer(0));
    if (!transfer) {
        return {.result = usbNoMemory};
    }

    std::vector<std::uint8_t> buffer(LIBUSB_CONTROL_SETUP_SIZE + reply.size());
    libusb_fill_control_setup(buffer.data(), requestType, request, value, index,
                              static_cast<std::uint16_t>(reply.size()));
    int completed = 0;
    libusb_fill_control_transfer(transfer.get(), handle, buffer.data(), finished, &completed, 0);
    // The kernel's own refusals all show here, at once, as IO; bus errors come with the completion.
    if (const int result = libusb_submit_transfer(transfer.get()); result < 0) {
        return {.result = result, .refusedByHost = result == LIBUSB_ERROR_IO};
    }

    waitFor(*transfer, completed);
    const auto came = static_cast<std::size_t>(std::max(transfer->actual_length, 0));
    std::copy_n(buffer.begin() + LIBUSB_CONTROL_SETUP_SIZE, std::min(came, reply.size()), reply.begin());
    return {.result = resultOf(*transfer)};
}

}  // namespace kzq
