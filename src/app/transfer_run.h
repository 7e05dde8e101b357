#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "platform/executor.h"

namespace kzq {

/// Progress of one transfer, passed from the device link's thread to the window. The link holds the device
/// lock while it reports, so nothing here waits for the main thread.
class TransferRun {
  public:
    /// `executor` outlives it. `post` has a task done on the main thread, in order; `percent` is called
    /// there. `total` may be 0; then every fraction is 0.
    TransferRun(Executor& executor, std::function<void(Executor::Task)> post, std::uint64_t total,
                std::function<void(double fraction)> percent);

    // The link's thread.

    /// A further batch, which counts from 0 again.
    void batchBegins();
    /// `bytes` of the whole batch have been transferred. Of the fractions of a running loop only the newest
    /// is delivered, and no more of them than the eye sees: a fast pedal reports thousands a second.
    void moved(std::uint64_t bytes);
    /// A loop of so many bytes is done: the fraction so far is shown, and then `task` done.
    void loopDone(std::uint64_t bytes, Executor::Task task);

  private:
    struct Bar;
    static void deliver(const std::shared_ptr<Bar>& bar);
    static void show(const std::shared_ptr<Bar>& bar);

    double fractionOf(std::uint64_t bytes) const;

    const std::uint64_t total_;
    const std::shared_ptr<Bar> bar_;
    std::uint64_t done_ = 0;
    std::uint64_t before_ = 0;  ///< in earlier batches
    std::uint64_t inBatch_ = 0;
};

}  // namespace kzq
