#pragma once

#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "platform/executor.h"

namespace kzq {

/// The one lock around the pedal. Recursive. Batches hold it for their whole run, so the main
/// thread must not wait for it: work of the main thread that needs it goes through `mainTurn`, which keeps
/// its place in the queue.
class DeviceLock {
  public:
    explicit DeviceLock(Executor& executor) : executor_(executor) {}

    // Named for std::lock_guard.
    void lock();
    void unlock();

    /// Waits for the lock as `lock` does, or until `instead()` is true. Returns whether the lock was taken.
    /// Call `reconsider` after changing the answer of `instead`.
    bool lockUnless(const std::function<bool()>& instead);
    void reconsider();

    /// Runs `task` with the lock held: at once if the lock is free, otherwise as a task of the main queue
    /// as soon as it is released. Turns run in the order of the calls. Main thread only.
    void mainTurn(Executor::Task task);

  private:
    bool lockOrAskForWake();
    void runTurns();

    Executor& executor_;
    std::mutex mutex_;
    Condition changed_;
    std::thread::id owner_;
    unsigned depth_ = 0;
    bool wakeMain_ = false;             ///< a turn waits: releasing the lock queues runTurns
    std::deque<Executor::Task> turns_;  ///< main thread only
    bool running_ = false;  ///< main thread only; a turn may run an event loop that brings another turn
};

}  // namespace kzq
