#pragma once

#include "platform/executor.h"

namespace kzq {

/// How long this computer has been suspended since it started. It jumps when the computer wakes up. Any
/// thread.
Executor::Duration timeAsleep();

}  // namespace kzq
