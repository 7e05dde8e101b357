#pragma once

#include <cstdint>
#include <span>

namespace kzq {

/// Writes all of `bytes` to an open file, however often the system stops short. 0, or an errno value.
int writeAll(int descriptor, std::span<const std::uint8_t> bytes);

}  // namespace kzq
