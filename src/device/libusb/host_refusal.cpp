#include "device/libusb/host_refusal.h"

#include <libusb.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "device/commands.h"
#include "device/usb_port.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr unsigned recipientMask = 0x1F;
constexpr unsigned typeMask = 0x60;

void logReason(std::uint8_t requestType, std::uint16_t index) {
    std::array<char, 160> line{};
    std::snprintf(
        line.data(), line.size(),
        "the host refused request 0x%02X: it takes it for one to interface %u, which cannot be had; "
        "import needs the usbtmc road",
        static_cast<unsigned>(requestType), index & 0xFFU);
    log(LogCategory::usb, line.data());
}

}  // namespace

bool HostRefusal::concerns(std::uint8_t requestType) {
    return (requestType & recipientMask) == LIBUSB_RECIPIENT_INTERFACE &&
           (requestType & typeMask) != LIBUSB_REQUEST_TYPE_VENDOR;
}

int HostRefusal::answer(std::uint8_t requestType, std::uint16_t index, std::span<std::uint8_t> reply) {
    std::call_once(logged_, logReason, requestType, index);
    if (reply.size() <= answerOffset) {
        return usbIo;
    }
    std::ranges::fill(reply, std::uint8_t{0});
    reply[answerOffset] = refusal;
    return static_cast<int>(reply.size());
}

}  // namespace kzq
