#pragma once

#include <deque>
#include <string>

#include "platform/executor.h"

namespace kzq {

/// How long something will still take, judged by how fast it went lately. All times are the caller's; they
/// never go backwards.
class TimeLeft {
  public:
    using TimePoint = Executor::TimePoint;

    explicit TimeLeft(TimePoint start) : start_(start), moved_(start) {}

    /// `fraction` of it is done; less than before, or not a number, changes nothing.
    void moved(TimePoint now, double fraction);
    /// "about 10 s left", "about 2 min left"; empty in the first seconds. It never grows: in a standstill, or
    /// when what was said last turns out to be far too little, nothing is said until it is true again.
    std::string words(TimePoint now);

  private:
    struct Mark {
        TimePoint time;
        double fraction;
    };
    /// In seconds; infinite if nothing has been done yet.
    double estimate(TimePoint now) const;

    TimePoint start_;
    double fraction_ = 0;
    TimePoint moved_;
    std::deque<Mark> marks_;  ///< of the last seconds; the first is a little older
    int said_ = 0;            ///< in seconds; 0: nothing yet
};

}  // namespace kzq
