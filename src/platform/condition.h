#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>

namespace kzq {

/// What Executor::wait waits for: a condition variable that counts its notifications, so that a clock which
/// runs threads one at a time wakes only those that were notified, as real threads are. All members may be
/// called from any thread.
class Condition {
  public:
    void notify() {
        ++notified_;
        condition_.notify_all();
    }
    /// How often `notify` has been called.
    std::uint64_t notified() const { return notified_; }

    /// As std::condition_variable::wait. For executors; everybody else goes through Executor::wait.
    void wait(std::unique_lock<std::mutex>& lock, const std::function<bool()>& ready) {
        condition_.wait(lock, ready);
    }

  private:
    std::atomic<std::uint64_t> notified_ = 0;
    std::condition_variable condition_;
};

}  // namespace kzq
