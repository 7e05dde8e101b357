#include "audio/file_bytes.h"

#include <unistd.h>

namespace kzq {

std::string FileBytes::text(std::uint64_t offset, unsigned width) const {
    constexpr unsigned mostText = 256;
    if (width > mostText || after(offset) < width) {
        return {};
    }
    std::string bytes(width, '\0');
    const ssize_t got = ::pread(file_, bytes.data(), width, static_cast<off_t>(offset));
    return got == static_cast<ssize_t>(width) ? bytes : std::string();
}

std::optional<std::uint64_t> FileBytes::big(std::uint64_t offset, unsigned width) const {
    const std::string bytes = text(offset, width);
    if (bytes.empty() || width > sizeof(std::uint64_t)) {
        return std::nullopt;
    }
    std::uint64_t value = 0;
    for (const char byte : bytes) {
        value = value << 8U | static_cast<std::uint8_t>(byte);
    }
    return value;
}

std::optional<std::uint64_t> FileBytes::little(std::uint64_t offset, unsigned width) const {
    const std::string bytes = text(offset, width);
    if (bytes.empty() || width > sizeof(std::uint64_t)) {
        return std::nullopt;
    }
    std::uint64_t value = 0;
    for (std::size_t i = bytes.size(); i-- > 0;) {
        value = value << 8U | static_cast<std::uint8_t>(bytes[i]);
    }
    return value;
}

}  // namespace kzq
