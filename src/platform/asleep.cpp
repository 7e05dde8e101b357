#include "platform/asleep.h"

#include <ctime>

namespace kzq {

namespace {

Executor::Duration timeBy(clockid_t clock) {
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

Executor::Duration timeAsleep() {
    const auto withSleep = timeBy(CLOCK_BOOTTIME);
    return withSleep - timeBy(CLOCK_MONOTONIC);
}

}  // namespace kzq
