#pragma once

#include <cstdint>
#include <mutex>
#include <string>

#include "ctl/speech/output.h"
#include "ctl/speech/progress_meter.h"
#include "loops/slot_number.h"
#include "operations/outcome.h"

namespace kzq::ctl {

/// The progress of work that goes through several steps: a line on a terminal, or events for programs. Any
/// thread.
class ProgressLine {
  public:
    /// `total` bytes in all steps together. Both references outlive it.
    /// `forPeople`: otherwise JSON is printed.
    ProgressLine(Executor& executor, Output& output, bool forPeople, std::uint64_t total);

    /// The next step; what the current one has moved counts as done.
    /// `action` ("read", "write", "compare") is for programs and outlives this; `what` is for people.
    void begin(SlotNumber slot, const char* action, const std::string& what);
    void begin(SlotNumber slot, Step step);
    /// `bytes` of this step have moved.
    void update(std::uint64_t bytes);
    void end();

  private:
    Executor& executor_;
    Output& output_;
    const bool forPeople_;
    std::mutex mutex_;
    ProgressMeter meter_;
    std::string what_;
    const char* action_ = "";
    unsigned slot_ = 0;
    const std::uint64_t total_;
    std::uint64_t before_ = 0;  ///< moved in earlier steps
    std::uint64_t moved_ = 0;   ///< in this step
    Executor::TimePoint written_;
};

}  // namespace kzq::ctl
