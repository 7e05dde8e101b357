#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "loops/capacity.h"
#include "loops/frames.h"         // clockText
#include "platform/free_space.h"  // sizeText

namespace kzq::ctl {

/// What the loops leave of the capacity, in frames; never below 0.
std::uint64_t freeFrames(const Loops& loops);

/// "m:ss.t", rounded down.
std::string lengthText(std::uint64_t frames);
/// "22 min 58 s", rounded down.
std::string minutesText(std::uint64_t frames);
/// `text` with everything but printable ASCII replaced by '?': for what the pedal says.
std::string printable(std::string_view text);

}  // namespace kzq::ctl
