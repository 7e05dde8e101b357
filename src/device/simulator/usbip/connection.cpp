#include "device/simulator/usbip/connection.h"

#include <sys/socket.h>

#include <cerrno>

namespace kzq::simulator::usbip {

bool Connection::read(std::span<std::uint8_t> into) {
    while (!into.empty()) {
        const auto came = ::recv(socket_.get(), into.data(), into.size(), MSG_WAITALL);
        if (came > 0) {
            into = into.subspan(static_cast<std::size_t>(came));
        } else if (came == 0 || errno != EINTR) {
            return false;
        }
    }
    return !hungUp_;
}

bool Connection::write(std::span<const std::uint8_t> from) {
    while (!from.empty()) {
        const auto went = ::send(socket_.get(), from.data(), from.size(), MSG_NOSIGNAL);
        if (went > 0) {
            from = from.subspan(static_cast<std::size_t>(went));
        } else if (went == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

void Connection::hangUp() {
    hungUp_ = true;
    ::shutdown(socket_.get(), SHUT_RDWR);
}

}  // namespace kzq::simulator::usbip
