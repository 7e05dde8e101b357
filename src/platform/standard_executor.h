#pragma once

#include <memory>

#include "platform/threaded_executor.h"

namespace kzq {

/// Real time and real threads. The thread that calls `run` is the main thread.
///
/// A program that ends with std::_Exit may abandon jobs that are blocked in a transfer. Otherwise the
/// destructor waits for the pool's running jobs and drops those that have not started; services end after
/// their current step and are not waited for.
class StandardExecutor : public ThreadedExecutor {
  public:
    StandardExecutor();
    ~StandardExecutor() override;

    /// Runs the main queue until `stop`. Tasks still queued then stay for the next `run`.
    void run();
    /// Makes `run` return after the task it is in. Any thread.
    void stop();

    void main(Task task) override;
    void mainAfter(Duration delay, Task task) override;

  private:
    struct MainQueue;

    std::unique_ptr<MainQueue> main_;
};

}  // namespace kzq
