#pragma once

#include <sys/types.h>

#include <cstdint>
#include <span>

namespace kzq::ctl {

/// Reads what standard input has: how many bytes, or 0 at its end. -EAGAIN when nothing came for a tenth of a
/// second, otherwise a negative errno value. Any thread.
ssize_t readStandardInput(std::span<std::uint8_t> into);

}  // namespace kzq::ctl
