#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

#include "ctl/output.h"
#include "ctl/progress_meter.h"

namespace kzq::ctl {

/// The progress line of work that goes through several steps. Any thread.
class ProgressLine {
  public:
    /// `total` bytes in all steps together. Both references outlive it.
    ProgressLine(Executor& executor, Output& output, bool shown, std::uint64_t total);

    /// The next step; what the current one has moved counts as done.
    void begin(const std::string& what);
    /// `bytes` of this step have moved.
    void update(std::uint64_t bytes);
    void end();

  private:
    Executor& executor_;
    Output& output_;
    const bool shown_;
    std::mutex mutex_;
    ProgressMeter meter_;
    std::string what_;
    std::uint64_t before_ = 0;  ///< moved in earlier steps
    std::uint64_t moved_ = 0;   ///< in this step
    Executor::TimePoint written_;
};

}  // namespace kzq::ctl
