#include <algorithm>

#include "device/class_state.h"
#include "device/kzq7306.h"
#include "platform/log.h"

namespace kzq {

namespace {

using std::chrono::seconds;
constexpr Executor::Duration pollPeriod = seconds(5);
constexpr Executor::Duration shortestPause = seconds(1);

}  // namespace

void KZQ7306::timer() {
    timer(true);
}

void KZQ7306::timer(bool repeating) {
    if (const auto environment = classState().getEnvironment()) {
        const auto start = environment->executor.now();
        environment->executor.background(Priority::high, [&executor = environment->executor, start,
                                                          repeating] { poll(executor, start, repeating); });
    }
}

void KZQ7306::refresh() {  // NOLINT(readability-convert-member-functions-to-static)
    timer(false);
}

void KZQ7306::poll(Executor& executor, Executor::TimePoint start, bool repeating) {
    const auto next = [&executor, start, repeating] {
        if (repeating) {
            const auto due = std::max(shortestPause, start + pollPeriod - executor.now());
            executor.mainAfter(due, [] { timer(); });
        }
    };
    const auto instance = looper();
    const auto news = instance && !(repeating && instance->busy()) ? instance->news(repeating) : std::nullopt;
    executor.main([instance, news, next] {
        if (news) {
            if (const auto delegate = instance->delegate()) {
                delegate->looperInternalStateChanged(*news);
            }
        }
        next();
    });
}

/// The full status, kept as the one last reported; nothing if there is none, if it did not come whole, or if
/// it equals the last one and only changes count.
std::optional<Status> KZQ7306::news(bool onlyChanges) {
    const std::lock_guard guard(*lock_);
    auto now = status(true);
    if (!now) {
        return std::nullopt;
    }
    if (!now->loops.complete) {
        log(LogCategory::device,
            "poll: a reply did not come whole; the pedal is asked again at the next one");
        return std::nullopt;
    }
    const std::lock_guard mirror(mirror_);
    if (onlyChanges && now == lastStatus_) {
        return std::nullopt;
    }
    lastStatus_ = now;
    return now;
}

}  // namespace kzq
