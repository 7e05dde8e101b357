#pragma once

#include <string>

#include "loops/frames.h"
#include "words/words.h"

namespace kzq {

/// "2 minutes 31 seconds", rounded down, for a screen reader.
inline std::string spokenLength(Frames length) {
    constexpr std::uint64_t minute = 60;
    const auto seconds = length.seconds();
    const auto rest = words(seconds % minute, "%n second", "%n seconds");
    return seconds < minute ? rest : words(seconds / minute, "%n minute %1", "%n minutes %1", rest);
}

}  // namespace kzq
