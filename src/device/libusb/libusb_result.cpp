#include "device/libusb/libusb_result.h"

#include <libusb.h>

#include <string>

#include "platform/log.h"

namespace kzq {

namespace {

constexpr bool same(UsbResult ours, libusb_error theirs) {
    return static_cast<int>(ours) == static_cast<int>(theirs);
}

static_assert(same(usbSuccess, LIBUSB_SUCCESS));
static_assert(same(usbIo, LIBUSB_ERROR_IO));
static_assert(same(usbInvalid, LIBUSB_ERROR_INVALID_PARAM));
static_assert(same(usbAccess, LIBUSB_ERROR_ACCESS));
static_assert(same(usbNoDevice, LIBUSB_ERROR_NO_DEVICE));
static_assert(same(usbNotFound, LIBUSB_ERROR_NOT_FOUND));
static_assert(same(usbBusy, LIBUSB_ERROR_BUSY));
static_assert(same(usbTimeout, LIBUSB_ERROR_TIMEOUT));
static_assert(same(usbOverflow, LIBUSB_ERROR_OVERFLOW));
static_assert(same(usbPipe, LIBUSB_ERROR_PIPE));
static_assert(same(usbInterrupted, LIBUSB_ERROR_INTERRUPTED));
static_assert(same(usbNoMemory, LIBUSB_ERROR_NO_MEM));
static_assert(same(usbNotSupported, LIBUSB_ERROR_NOT_SUPPORTED));
static_assert(same(usbOther, LIBUSB_ERROR_OTHER));

}  // namespace

UsbResult logged(std::string_view what, int result) {
    if (result >= 0) {
        return usbSuccess;
    }
    log(LogCategory::usb, std::string(what) + ": " + libusb_error_name(result));
    return static_cast<UsbResult>(result);
}

}  // namespace kzq
