#pragma once

#include <optional>

#include "loops/status.h"

namespace kzq {

class KZQ7306;

/// The full status with every reply to it whole; nothing if that fails three times. Waits for the pedal, and
/// lets nobody else ask it meanwhile.
std::optional<Status> wholeStatus(KZQ7306& looper);

}  // namespace kzq
