#pragma once

#include <memory>

#include "platform/threaded_executor.h"

class QObject;

namespace kzq {

/// Real time and real threads around Qt's event loop: the thread of the application object is the main one.
/// Created after the application object on its thread, and destroyed before it.
///
/// A program that ends with std::_Exit abandons jobs that are blocked in a transfer. Otherwise the destructor
/// waits for the pool's running jobs and drops what has not started, including main-thread tasks; services
/// end after their current step and are not waited for.
class QtExecutor : public ThreadedExecutor {
  public:
    QtExecutor();
    ~QtExecutor() override;

    void main(Task task) override;
    void mainAfter(Duration delay, Task task) override;

  private:
    void startTimer(TimePoint due, Task task);

    std::unique_ptr<QObject> context_;  ///< lives on the main thread; queued tasks are dropped with it
};

}  // namespace kzq
