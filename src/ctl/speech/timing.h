#pragma once

#include "platform/executor.h"

namespace kzq::ctl {

/// How long the news that a pedal has left may be behind the failure of its last transfer.
inline constexpr Executor::Duration departureNotice = std::chrono::milliseconds(500);
/// What a cancelled transfer gets to end by itself, and then to end after the pedal was reset.
inline constexpr Executor::Duration cancelGrace = std::chrono::seconds(2);
/// How often the progress line is written.
inline constexpr Executor::Duration progressPeriod = std::chrono::milliseconds(200);

}  // namespace kzq::ctl
