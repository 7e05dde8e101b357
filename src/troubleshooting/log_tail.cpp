#include "troubleshooting/log_tail.h"

#include <array>
#include <ctime>

namespace kzq {

std::string timeOfDay(std::chrono::system_clock::time_point time) {
    const auto seconds = std::chrono::system_clock::to_time_t(time);
    std::tm local{};
    ::localtime_r(&seconds, &local);
    std::array<char, 16> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%H:%M:%S", &local)};
}

void LogTail::add(std::string_view line) {
    auto text = timeOfDay(clock_()) + " " + std::string(line);
    const std::lock_guard lock(mutex_);
    lines_.push_back(std::move(text));
    if (lines_.size() > kept) {
        lines_.pop_front();
    }
}

std::vector<std::string> LogTail::lines() const {
    const std::lock_guard lock(mutex_);
    return {lines_.begin(), lines_.end()};
}

}  // namespace kzq
