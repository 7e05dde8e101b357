#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "platform/executor.h"

namespace kzq::ctl {

/// How far a transfer is, how fast it goes and how long it will still take. The speed is that of the last
/// seconds.
class ProgressMeter {
  public:
    ProgressMeter(std::uint64_t total, Executor::TimePoint start);

    void update(std::uint64_t bytes, Executor::TimePoint now);
    /// "45 %, 1.2 MB/s, 0:12 left"; the percentage alone while the speed is not known.
    std::string text() const;

  private:
    struct Sample {
        Executor::TimePoint time;
        std::uint64_t bytes = 0;
    };

    std::uint64_t total_;
    std::deque<Sample> samples_;  ///< never empty; the last one is the present
};

}  // namespace kzq::ctl
