#pragma once

#include <array>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>

#include "platform/executor.h"

namespace kzq {

/// Threads created on demand: a job starts at once on an idle thread or on a new one. Any thread.
class ThreadPool : public std::enable_shared_from_this<ThreadPool> {
  public:
    void add(Priority priority, Executor::Task task);
    /// Drops jobs that have not started and waits for running ones. New jobs are no longer accepted.
    void end();
    bool ended() const { return ended_; }

  private:
    void work();
    Executor::Task take();

    std::atomic<bool> ended_ = false;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::condition_variable done_;
    std::array<std::deque<Executor::Task>, 3> jobs_;  // by priority, the highest first
    std::size_t waiting_ = 0;
    std::size_t idle_ = 0;
    std::size_t threads_ = 0;
};

}  // namespace kzq
