#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace kzq {

/// Keeps the computer awake as long as `hold` lives; null, with the problem, when that does not work.
struct AwakeLock {
    std::shared_ptr<void> hold;
    std::string problem;
};

/// What the computer is kept awake for: a transfer, which a shutdown may end, or an installation of firmware,
/// which it may not.
enum class AwakeFor : std::uint8_t { transfer, firmware };

/// Asks the system's login manager not to sleep, not even when the lid is closed. Waits a few seconds at
/// most; needs a QCoreApplication. Any thread.
AwakeLock keepAwake(AwakeFor work);

}  // namespace kzq
