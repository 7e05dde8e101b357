#pragma once

#include <string>

#include "loops/frames.h"

namespace kzq {

/// "2 minutes 31 seconds", rounded down, for a screen reader.
inline std::string spokenLength(Frames length) {
    const auto part = [](std::uint64_t count, const char* unit) {
        return std::to_string(count) + " " + unit + (count == 1 ? "" : "s");
    };
    constexpr std::uint64_t minute = 60;
    const auto seconds = length.seconds();
    const auto rest = part(seconds % minute, "second");
    return seconds < minute ? rest : part(seconds / minute, "minute") + " " + rest;
}

}  // namespace kzq
