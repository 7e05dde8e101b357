#pragma once

#include <memory>

#include "platform/executor.h"

class QObject;

namespace kzq {

class ThreadPool;

/// Real time and real threads around Qt's event loop: the thread of the application object is the main one.
/// Made after the application object and destroyed before it.
///
/// A program that ends with std::_Exit leaves jobs behind that are parked in a transfer. The destructor, for
/// everybody else, waits for the pool's running jobs and drops those that have not started; services are
/// told to end after their present step and are not waited for. What is queued on the main thread then is
/// dropped.
class QtExecutor : public Executor {
  public:
    QtExecutor();
    ~QtExecutor() override;

    void main(Task task) override;
    void mainAfter(Duration delay, Task task) override;
    void background(Priority priority, Task task) override;
    void service(std::string label, Task step) override;
    TimePoint now() const override;
    void sleep(Duration duration) override;
    void wait(std::unique_lock<std::mutex>& lock, std::condition_variable& changed,
              const std::function<bool()>& ready) override;

  private:
    std::unique_ptr<QObject> context_;  ///< lives on the main thread; what is queued goes with it
    std::shared_ptr<ThreadPool> pool_;
};

}  // namespace kzq
