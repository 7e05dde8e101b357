#include "app/time_left.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "words/words.h"

namespace kzq {

namespace {

constexpr std::chrono::seconds unknownFor(4);  // the first figures jump
constexpr std::chrono::seconds lately(20);     // how far back the speed is measured
constexpr std::chrono::seconds standstill(3);
constexpr std::chrono::seconds betweenMarks(1);  // many reports come in between
constexpr int secondsPerMinute = 60;
// What was said stands while there is no more left than this many times as much, and this many seconds.
constexpr double tolerated = 1.5;  // minutes are rounded
constexpr double toleratedSeconds = 4;

double secondsOf(Executor::Duration duration) {
    return std::chrono::duration<double>(duration).count();
}

int roundedUp(double seconds, int step) {
    return std::max(step, static_cast<int>(std::ceil(seconds / step - 0.01)) * step);
}

/// To 5 s, from half a minute on to 10 s, from a minute on to minutes.
int inSteps(double seconds) {
    if (seconds > secondsPerMinute) {
        return static_cast<int>(std::round(seconds / secondsPerMinute)) * secondsPerMinute;
    }
    return roundedUp(seconds, seconds > secondsPerMinute / 2.0 ? 10 : 5);
}

std::string inWords(int seconds) {
    return seconds < secondsPerMinute ? words("about %1 s left", seconds)
                                      : words("about %1 min left", seconds / secondsPerMinute);
}

}  // namespace

void TimeLeft::moved(TimePoint now, double fraction) {
    if (!(fraction > fraction_)) {
        return;
    }
    fraction_ = std::min(fraction, 1.0);
    moved_ = now;
    if (marks_.empty() || now - marks_.back().time >= betweenMarks) {
        marks_.push_back({now, fraction_});
    }
    while (marks_.size() > 1 && now - marks_[1].time >= lately) {
        marks_.pop_front();
    }
}

double TimeLeft::estimate(TimePoint now) const {
    const Mark from = marks_.empty() || now - start_ < lately ? Mark{start_, 0} : marks_.front();
    const double done = fraction_ - from.fraction;
    return done > 0 ? (1 - fraction_) * secondsOf(now - from.time) / done
                    : std::numeric_limits<double>::infinity();
}

std::string TimeLeft::words(TimePoint now) {
    const auto left = estimate(now);
    const bool unknown = now - start_ < unknownFor || now - moved_ >= standstill || !std::isfinite(left);
    if (unknown || (said_ != 0 && left > said_ * tolerated + toleratedSeconds)) {
        return {};
    }
    said_ = said_ == 0 ? inSteps(left) : std::min(said_, inSteps(left));
    return inWords(said_);
}

}  // namespace kzq
