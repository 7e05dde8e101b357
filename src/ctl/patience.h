#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "platform/executor.h"

namespace kzq::ctl {

/// Notices that the pedal has been silent for too long.
class Patience : public std::enable_shared_from_this<Patience> {
  public:
    /// `limit` 0: for ever. `lost` runs at most once, on the main thread.
    Patience(Executor& executor, Executor::Duration limit, std::function<void()> lost);

    /// Counts from now. Main thread.
    void start();
    void stop() { stopped_ = true; }

    // Any thread.

    /// A sign of life.
    void touch();
    /// Something else than the pedal takes its time, until the next touch.
    void suspend() { suspended_ = true; }

  private:
    void check();

    Executor& executor_;
    Executor::Duration limit_;
    std::function<void()> lost_;
    std::atomic<Executor::Duration> last_;  ///< time of the last sign of life, since the clock's start
    Executor::Duration due_{};              ///< when the next check should run
    std::atomic<bool> suspended_ = false;
    std::atomic<bool> stopped_ = false;
};

}  // namespace kzq::ctl
