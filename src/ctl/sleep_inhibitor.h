#pragma once

#include "ctl/environment.h"

namespace kzq::ctl {

/// Asks the system's login manager to neither sleep nor shut down. Waits a few seconds at most; needs a
/// QCoreApplication.
AwakeLock keepAwake();

}  // namespace kzq::ctl
