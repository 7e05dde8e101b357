#pragma once

#include <cstdint>
#include <span>

namespace kzq {

/// Writes all of `bytes` to an open file, even after short writes: at the file's position, or at `offset`. 0,
/// or an errno value.
int writeAll(int descriptor, std::span<const std::uint8_t> bytes);
int writeAllAt(int descriptor, std::span<const std::uint8_t> bytes, std::uint64_t offset);

}  // namespace kzq
