#pragma once

#include <memory>

#include "platform/executor.h"

namespace kzq {

class ThreadPool;

/// Real time and real threads; the derived class decides where the main thread's tasks run.
class ThreadedExecutor : public Executor {
  public:
    ThreadedExecutor();
    ~ThreadedExecutor() override;

    void background(Priority priority, Task task) override;
    void service(std::string label, Task step) override;
    TimePoint now() const override;
    void sleep(Duration duration) override;
    void wait(std::unique_lock<std::mutex>& lock, Condition& changed,
              const std::function<bool()>& ready) override;

  protected:
    /// For the derived destructor, since running jobs still queue tasks: waits for the pool's running jobs
    /// and drops those that have not started. Services end after their present step and are not waited for.
    void endJobs();

  private:
    std::shared_ptr<ThreadPool> pool_;
};

}  // namespace kzq
