#pragma once

#include <atomic>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "platform/executor.h"

namespace kzq {

/// The one lock around the pedal. Recursive: whoever holds it may take it again. Batches hold it for their whole
/// run, so the main thread must never wait for it: work of the main thread that needs it goes through
/// `mainTurn` and keeps its place in the queue instead.
class DeviceLock {
  public:
    explicit DeviceLock(Executor& executor) : executor_(executor) {}

    // As the standard's Lockable, so that std::lock_guard works on it.
    void lock();
    bool try_lock();
    void unlock();

    /// Runs `task` on the main thread with the lock held: now, as a task of the main queue, when the lock is
    /// free, otherwise as soon as its holder lets go. Turns run in the order of the calls. Call it on the main thread.
    void mainTurn(Executor::Task task);

  private:
    void runTurns();

    Executor& executor_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::thread::id owner_;
    unsigned depth_ = 0;
    bool wakeMain_ = false;  ///< a turn waits: the holder queues runTurns when it lets go
    std::deque<Executor::Task> turns_;  ///< main thread only
    bool running_ = false;              ///< main thread only: a turn that queues a turn does not recurse
};

}  // namespace kzq
