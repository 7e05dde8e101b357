#pragma once

#include <chrono>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "platform/fixed.h"

namespace kzq {

/// The last lines of the log, for a report. Any thread.
class LogTail : Fixed {
  public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;
    static constexpr std::size_t kept = 300;

    explicit LogTail(Clock clock = &std::chrono::system_clock::now) : clock_(std::move(clock)) {}

    /// `line` begins with its category.
    void add(std::string_view line);
    /// "14:07:31 device: core:1", oldest first.
    std::vector<std::string> lines() const;

  private:
    Clock clock_;
    mutable std::mutex mutex_;
    std::deque<std::string> lines_;
};

/// Hours, minutes and seconds as people read them here: "14:07:31".
std::string timeOfDay(std::chrono::system_clock::time_point time);

}  // namespace kzq
