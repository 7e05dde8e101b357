#include "ctl/pedal/standard_input.h"

#include <poll.h>
#include <unistd.h>

#include <cerrno>

namespace kzq::ctl {

ssize_t readStandardInput(std::span<std::uint8_t> into) {
    constexpr int patience = 100;  // milliseconds
    pollfd input{STDIN_FILENO, POLLIN, 0};
    const int ready = ::poll(&input, 1, patience);
    if (ready == 0 || (ready < 0 && errno == EINTR)) {
        return -EAGAIN;
    }
    const ssize_t count = ready < 0 ? -1 : ::read(STDIN_FILENO, into.data(), into.size());
    if (count >= 0) {
        return count;
    }
    return errno == EINTR ? -EAGAIN : -errno;
}

}  // namespace kzq::ctl
