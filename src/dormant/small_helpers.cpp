#include "dormant/small_helpers.h"

#include <system_error>

namespace kzq {

std::optional<std::string> stringByPrependingString(const std::string& string,
                                                    const std::optional<std::string>& prefix) {
    if (!prefix) {
        return std::nullopt;
    }
    // an empty prefix gives the string, even if that is empty
    return *prefix + string;
}

bool createDirectoryAtPath(const std::filesystem::path& path) {
    if (path.empty()) {
        return false;
    }
    std::error_code error;
    std::filesystem::create_directories(path, error);
    return std::filesystem::is_directory(path, error);
}

namespace {

void schedule(Executor& executor, const std::shared_ptr<ScheduledTimer>& timer, Executor::Duration interval,
              const std::function<void()>& action, bool repeats) {
    executor.mainAfter(interval, [&executor, timer, interval, action, repeats] {
        if (!timer->isValid()) {
            return;
        }
        if (!repeats) {
            timer->invalidate();
        }
        action();
        if (timer->isValid()) {
            schedule(executor, timer, interval, action, repeats);
        }
    });
}

}  // namespace

std::shared_ptr<ScheduledTimer> scheduledTimer(Executor& executor, double interval,
                                               const std::function<void()>& action, bool repeats) {
    constexpr double shortest = 0.0001;  // what a run loop uses for an interval of 0
    if (!action) {
        return nullptr;
    }
    auto timer = std::make_shared<ScheduledTimer>();
    const auto seconds = std::chrono::duration<double>(std::max(interval, shortest));
    schedule(executor, timer, std::chrono::duration_cast<Executor::Duration>(seconds), action, repeats);
    return timer;
}

}  // namespace kzq
