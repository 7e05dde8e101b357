#include "audio/file_bytes.h"

#include <unistd.h>

#include <algorithm>

namespace kzq {

ByteView FileBytes::view(std::uint64_t offset, unsigned width) const {
    const bool inMemory = offset >= blockStart_ && offset + width <= blockStart_ + blockLength_;
    if (after(offset) < width) {
        return {};
    }
    if (!inMemory) {
        if (exhausted() || (cancelled_ != nullptr && *cancelled_)) {
            return {};
        }
        const ssize_t got = ::pread(file_, block_.data(), block_.size(), static_cast<off_t>(offset));
        blockStart_ = offset;
        blockLength_ = static_cast<std::size_t>(std::max<ssize_t>(got, 0));
        read_ += blockSize;
        if (blockLength_ < width) {
            return {};
        }
    }
    return ByteView(block_).first(blockLength_).subspan(offset - blockStart_);
}

std::string FileBytes::text(std::uint64_t offset, unsigned width) const {
    constexpr unsigned mostText = 256;
    const ByteView bytes = width > mostText ? ByteView() : view(offset, width);
    return bytes.empty() ? std::string() : std::string(bytes.begin(), bytes.begin() + width);
}

std::optional<std::uint64_t> FileBytes::big(std::uint64_t offset, unsigned width) const {
    const ByteView bytes = width > sizeof(std::uint64_t) ? ByteView() : view(offset, width);
    if (bytes.empty()) {
        return std::nullopt;
    }
    std::uint64_t value = 0;
    for (const auto byte : bytes.first(width)) {
        value = value << 8U | byte;
    }
    return value;
}

std::optional<std::uint64_t> FileBytes::little(std::uint64_t offset, unsigned width) const {
    const auto value = big(offset, width);
    return value ? std::optional(__builtin_bswap64(*value) >> (64U - 8U * width)) : std::nullopt;
}

std::uint64_t FileBytes::afterZeros(std::uint64_t offset, std::uint64_t limit) const {
    while (offset < limit) {
        const ByteView bytes = view(offset, 1);
        const auto other = std::ranges::find_if(bytes, [](std::uint8_t byte) { return byte != 0; });
        offset += static_cast<std::uint64_t>(other - bytes.begin());
        if (other != bytes.end() || bytes.empty()) {
            break;
        }
    }
    return std::min(offset, limit);
}

}  // namespace kzq
