#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>

#include "platform/executor.h"

namespace kzq {

/// Progress of one transfer, passed from the device link's thread to the window. The link holds the device
/// lock while it reports, so nothing here waits for the main thread.
class TransferRun {
  public:
    /// All on the main thread, in the order of the events. Of the fractions of a running loop only the
    /// newest is delivered: at most one is queued.
    struct Listener {
        std::function<void(double fraction)> percent;
        std::function<void(std::uint8_t slot)> loopDone;
        std::function<void()> finished;
    };

    /// `total` may be 0; then every fraction is 0.
    TransferRun(Executor& executor, std::uint64_t total, Listener listener);

    // The link's thread.

    /// `bytes` of the whole batch have been transferred.
    void moved(std::uint64_t bytes);
    /// Counts a loop of so many bytes.
    void add(std::uint64_t bytes) { done_ += bytes; }
    /// That loop is done: reports the fraction so far, then the loop.
    void loopDone(std::uint8_t slot);
    void finished();

  private:
    double fractionOf(std::uint64_t bytes) const;

    struct Window {
        Listener listener;
        std::atomic<double> newest = 0;
        std::atomic<bool> posted = false;
    };
    Executor& executor_;
    const std::uint64_t total_;
    const std::shared_ptr<Window> window_;
    std::uint64_t done_ = 0;
};

}  // namespace kzq
