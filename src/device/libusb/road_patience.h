#pragma once

#include <chrono>
#include <optional>

namespace kzq {

/// How long to wait for udev, which on a busy machine gives access seconds late, or takes the driver away for
/// a moment. An operation that asks again and again for what never comes waits so long in all, not each time.
class RoadPatience {
  public:
    using Clock = std::chrono::steady_clock;
    static constexpr Clock::duration limit = std::chrono::seconds(8);
    /// After so long without a question it is another operation.
    static constexpr Clock::duration rest = std::chrono::seconds(2);

    /// A request begins.
    void begin(Clock::time_point now) {
        if (asked_ && now - *asked_ > rest) {
            since_.reset();
        }
        asked_ = now;
    }
    /// The road is closed at the moment: whether to look again.
    bool lasts(Clock::time_point now) {
        asked_ = now;
        since_ = since_.value_or(now);
        return now - *since_ < limit;
    }
    void passed() { since_.reset(); }

  private:
    std::optional<Clock::time_point> asked_;  ///< last
    std::optional<Clock::time_point> since_;  ///< when the waiting began
};

}  // namespace kzq
