#pragma once

#include <cstdint>
#include <string>

#include "loops/loops.h"

namespace kzq {

/// What the pedal reports about itself.
struct Status {
    std::uint32_t remaining = 0;  ///< as received; free space is derived from the loops instead
    std::string version;          ///< 4 ASCII characters
    Loops loops;                  ///< empty if the status was requested without loops

    bool operator==(const Status&) const = default;
};

}  // namespace kzq
