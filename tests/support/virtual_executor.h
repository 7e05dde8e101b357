#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/executor.h"

namespace kzq::test {

/// A clock that a test turns. The thread that constructs it is the main thread; every background job and
/// service is a thread of its own, but only one of them all runs at a time, and a thread gives up its turn
/// only where it sleeps, waits or ends. Who waits goes on only when notified, as with real threads. So the
/// order of events is the same in every run, an hour passes at once, and a lock still sees who holds it.
class VirtualExecutor : public Executor {
  public:
    VirtualExecutor();
    ~VirtualExecutor() override;

    /// Ends jobs that still sleep or wait by unwinding them; call it while what they use is still there.
    void endJobs();

    /// Runs everything that can run at the present instant.
    void settle() { advance(Duration::zero()); }
    /// Lets `duration` pass, with everything that falls due in it. Main thread.
    void advance(Duration duration);
    /// Lets time pass until `done()`, at most `limit`. Returns whether it got there. Main thread.
    bool advanceUntil(const std::function<bool()>& done, Duration limit = std::chrono::hours(1));

    /// Of so many that can go on, in the order of asking, the one that does, from 0; unset: the first. The
    /// main thread's tasks keep their order, but for its timers. Called within the executor, which it must
    /// not use.
    std::function<std::size_t(std::size_t count)> choose;
    /// A background job begins before the one that starts it goes on, which must hold no mutex.
    bool eager = false;
    /// Runs the next thing, also one that is due only within the hour. False if there is none. Main thread.
    bool step();
    /// Time passes while nothing gets its turn, as on a computer that is too busy. Main thread.
    void skip(Duration duration);

    /// Time since the start.
    Duration elapsed() const;
    bool onMainThread() const;
    /// How often the main thread had to stop for another one: 0 is what a window wants.
    unsigned mainThreadWaits() const;
    /// The labels of the services, in order of their start.
    std::vector<std::string> serviceLabels() const;
    /// Background jobs that have not ended.
    std::size_t jobs() const;

    void main(Task task) override;
    void mainAfter(Duration delay, Task task) override;
    void background(Priority priority, Task task) override;
    void service(std::string label, Task step) override;
    TimePoint now() const override;
    void sleep(Duration duration) override;
    void wait(std::unique_lock<std::mutex>& lock, Condition& changed,
              const std::function<bool()>& ready) override;

  private:
    struct Worker;
    struct Ready;
    struct State;

    bool runOne(bool withMainTasks);
    std::vector<Ready> allReady(bool withMainTasks) const;
    bool runTimeTo(TimePoint limit, bool withMainTasks);
    void runUntil(const std::function<bool()>& woken);
    void resume(Worker& worker);
    void park(Worker& worker);
    void start(Task task, bool forever);

    std::unique_ptr<State> state_;
};

}  // namespace kzq::test
