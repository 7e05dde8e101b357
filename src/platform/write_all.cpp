#include "platform/write_all.h"

#include <unistd.h>

#include <cerrno>

namespace kzq {

int writeAll(int descriptor, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        if (written == 0) {
            return EIO;
        }
        if (written > 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(written));
        }
    }
    return 0;
}

}  // namespace kzq
