#include "device/libusb/host_refusal.h"

#include <libusb.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <system_error>

#include "device/usb_port.h"
#include "device/wire.h"
#include "platform/log.h"

namespace kzq {

namespace {

constexpr unsigned recipientMask = 0x1F;
constexpr unsigned typeMask = 0x60;

void logReason(std::uint8_t requestType, std::uint16_t index, const Trouble& obstacle) {
    std::array<char, 128> refused{};
    std::snprintf(refused.data(), refused.size(),
                  "the host refused request 0x%02X, which it takes for a request to interface %u; ",
                  static_cast<unsigned>(requestType), index & 0xFFU);
    log(LogCategory::usb,
        refused.data() + std::string("the way around is closed: ") + std::string(troubleName(obstacle.kind)) +
            (obstacle.where.empty() ? "" : ", " + obstacle.where) +
            (obstacle.error == 0 ? "" : ", " + std::generic_category().message(obstacle.error)));
}

}  // namespace

bool HostRefusal::concerns(std::uint8_t requestType) {
    return (requestType & recipientMask) == LIBUSB_RECIPIENT_INTERFACE &&
           (requestType & typeMask) != LIBUSB_REQUEST_TYPE_VENDOR;
}

int HostRefusal::answer(std::uint8_t requestType, std::uint16_t index, const Trouble& obstacle,
                        std::span<std::uint8_t> reply) {
    logReason(requestType, index, obstacle);
    if (reply.size() <= answerOffset) {
        return usbIo;
    }
    std::ranges::fill(reply, std::uint8_t{0});
    reply[answerOffset] = refusal;
    return static_cast<int>(reply.size());
}

}  // namespace kzq
