#include "device/libusb/host_refusal.h"

#include <libusb.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "device/usb_port.h"
#include "device/wire.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr unsigned recipientMask = 0x1F;
constexpr unsigned typeMask = 0x60;

void logReason(std::uint8_t requestType, std::uint16_t index, std::string_view obstacle) {
    std::array<char, 128> refused{};
    std::snprintf(refused.data(), refused.size(),
                  "the host refused request 0x%02X, which it takes for a request to interface %u; ",
                  static_cast<unsigned>(requestType), index & 0xFFU);
    log(LogCategory::usb,
        refused.data() + std::string(obstacle) +
            ". To import loops, install 70-kzq7306.rules in /etc/udev/rules.d and kzq7306-usbtmc "
            "in /usr/lib/udev, run \"sudo udevadm control --reload\" and reconnect the pedal");
}

}  // namespace

bool HostRefusal::concerns(std::uint8_t requestType) {
    return (requestType & recipientMask) == LIBUSB_RECIPIENT_INTERFACE &&
           (requestType & typeMask) != LIBUSB_REQUEST_TYPE_VENDOR;
}

int HostRefusal::answer(std::uint8_t requestType, std::uint16_t index, std::string_view obstacle,
                        std::span<std::uint8_t> reply) {
    std::call_once(logged_, logReason, requestType, index, obstacle);
    if (reply.size() <= answerOffset) {
        return usbIo;
    }
    std::ranges::fill(reply, std::uint8_t{0});
    reply[answerOffset] = refusal;
    return static_cast<int>(reply.size());
}

}  // namespace kzq
