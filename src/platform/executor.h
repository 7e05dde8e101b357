#pragma once

#include <chrono>
#include <functional>
#include <mutex>
#include <string>

#include "platform/condition.h"
#include "platform/fixed.h"

namespace kzq {

/// Priority of work off the main thread; a higher one never waits for a lower one.
enum class Priority { high, standard, background };

/// Where code runs and what time it is. Everything that sleeps, starts a thread or reads a clock does it
/// through this interface, so that a test can run hours of the program's time instantly and to the exact
/// instant. All members may be called from any thread.
class Executor : Fixed {
  public:
    using Task = std::function<void()>;
    using Duration = std::chrono::nanoseconds;
    /// Counted from an arbitrary start; never goes backwards.
    using TimePoint = std::chrono::time_point<std::chrono::steady_clock, Duration>;

    virtual ~Executor() = default;

    /// Queues `task` on the main thread; tasks run in the order in which they were queued.
    virtual void main(Task task) = 0;
    /// Queues `task` on the main thread once `delay` has passed. A negative delay counts as none.
    virtual void mainAfter(Duration delay, Task task) = 0;
    /// Runs `task` on a thread of the pool. The pool has room for every waiting job: a task that blocks
    /// forever does not delay others.
    virtual void background(Priority priority, Task task) = 0;
    /// Runs `step` repeatedly, for the rest of the process, on a thread of its own named `label`.
    virtual void service(std::string label, Task step) = 0;

    virtual TimePoint now() const = 0;
    /// Blocks the calling thread for `duration`.
    virtual void sleep(Duration duration) = 0;
    /// Blocks the calling thread until `ready()`, like std::condition_variable::wait: `lock` is held while
    /// `ready` is called and on return, and released in between. Notify `changed` after changing the
    /// answer.
    virtual void wait(std::unique_lock<std::mutex>& lock, Condition& changed,
                      const std::function<bool()>& ready) = 0;
};

}  // namespace kzq
