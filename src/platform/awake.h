#pragma once

#include <memory>
#include <string>

namespace kzq {

/// Keeps the computer awake as long as `hold` lives; null, with the problem, when that does not work.
struct AwakeLock {
    std::shared_ptr<void> hold;
    std::string problem;
};

/// Asks the system's login manager to neither sleep nor shut down, not even when the lid is closed. Waits a
/// few seconds at most; needs a QCoreApplication. Any thread.
AwakeLock keepAwake();

}  // namespace kzq
