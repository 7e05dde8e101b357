#include "platform/write_all.h"

#include <unistd.h>

#include <cerrno>

namespace kzq {

namespace {

/// `write` gets the number of bytes already written.
template <typename Write>
int untilAll(std::size_t size, const Write& write) {
    for (std::size_t done = 0; done < size;) {
        const ssize_t written = write(done);
        if (written < 0 && errno != EINTR) {
            return errno;
        }
        if (written == 0) {
            return EIO;
        }
        if (written > 0) {
            done += static_cast<std::size_t>(written);
        }
    }
    return 0;
}

}  // namespace

int writeAll(int descriptor, std::span<const std::uint8_t> bytes) {
    return untilAll(bytes.size(), [=](std::size_t done) {
        return ::write(descriptor, bytes.data() + done, bytes.size() - done);
    });
}

int writeAllAt(int descriptor, std::span<const std::uint8_t> bytes, std::uint64_t offset) {
    return untilAll(bytes.size(), [=](std::size_t done) {
        return ::pwrite(descriptor, bytes.data() + done, bytes.size() - done,
                        static_cast<off_t>(offset + done));
    });
}

}  // namespace kzq
