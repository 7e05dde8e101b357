#include "device/libusb/transfer.h"

#include <libusb.h>

#include <algorithm>
#include <atomic>

namespace kzq {

namespace {

void LIBUSB_CALL finished(libusb_transfer* transfer) {
    std::atomic_ref(*static_cast<int*>(transfer->user_data)).store(1, std::memory_order_release);
}

}  // namespace

Transfer::Transfer() : transfer_(libusb_alloc_transfer(0)) {}

Transfer::~Transfer() {
    libusb_free_transfer(transfer_);
}

int Transfer::submit() {
    transfer_->callback = finished;
    transfer_->user_data = &completed_;
    completed_ = 0;
    const int result = libusb_submit_transfer(transfer_);
    if (result < 0) {
        completed_ = 1;
    }
    return result;
}

void Transfer::cancel() {
    libusb_cancel_transfer(transfer_);
}

void Transfer::wait() {
    while (std::atomic_ref(completed_).load(std::memory_order_acquire) == 0) {
        const int result = libusb_handle_events_completed(nullptr, &completed_);
        // The buffers belong to libusb until the transfer has ended, so it cannot be left before that.
        if (result < 0 && result != LIBUSB_ERROR_INTERRUPTED) {
            cancel();
        }
    }
}

UsbResult Transfer::result() const {
    switch (transfer_->status) {
        case LIBUSB_TRANSFER_COMPLETED:
            return usbSuccess;
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

std::size_t Transfer::moved() const {
    return static_cast<std::size_t>(std::max(transfer_->actual_length, 0));
}

}  // namespace kzq
