#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>

namespace kzq {

// Little-endian fields in byte buffers, on the wire and in files, on a host of any byte order.
//
// `bytes` may be a vector, an array or a span of std::uint8_t. The whole field, from `offset` on, must lie
// inside it: callers check lengths from outside before they come here; a debug build asserts it.

constexpr bool holdsField(std::size_t size, std::size_t offset, std::size_t width) {
    return offset <= size && width <= size - offset;
}

constexpr std::uint16_t loadU16(std::span<const std::uint8_t> bytes, std::size_t offset = 0) {
    assert(holdsField(bytes.size(), offset, 2));
    return static_cast<std::uint16_t>(bytes[offset] | (bytes[offset + 1] << 8U));
}

constexpr std::uint32_t loadU32(std::span<const std::uint8_t> bytes, std::size_t offset = 0) {
    assert(holdsField(bytes.size(), offset, 4));
    return loadU16(bytes, offset) | (std::uint32_t{loadU16(bytes, offset + 2)} << 16U);
}

constexpr void storeU16(std::span<std::uint8_t> bytes, std::size_t offset, std::uint16_t value) {
    assert(holdsField(bytes.size(), offset, 2));
    bytes[offset] = static_cast<std::uint8_t>(value & 0xFFU);
    bytes[offset + 1] = static_cast<std::uint8_t>(value >> 8U);
}

constexpr void storeU32(std::span<std::uint8_t> bytes, std::size_t offset, std::uint32_t value) {
    assert(holdsField(bytes.size(), offset, 4));
    storeU16(bytes, offset, static_cast<std::uint16_t>(value & 0xFFFFU));
    storeU16(bytes, offset + 2, static_cast<std::uint16_t>(value >> 16U));
}

}  // namespace kzq
