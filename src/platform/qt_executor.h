#pragma once

#include <memory>

#include "platform/threaded_executor.h"

class QObject;

namespace kzq {

/// Real time and real threads around Qt's event loop: the thread of the application object is the main one.
/// Made after the application object on its thread, and destroyed before it.
///
/// A program that ends with std::_Exit leaves jobs behind that are parked in a transfer. The destructor, for
/// everybody else, waits for the pool's running jobs and drops what has not started, on the main thread as
/// well; services are told to end after their present step and are not waited for.
class QtExecutor : public ThreadedExecutor {
  public:
    QtExecutor();
    ~QtExecutor() override;

    void main(Task task) override;
    void mainAfter(Duration delay, Task task) override;

  private:
    void startTimer(TimePoint due, Task task);

    std::unique_ptr<QObject> context_;  ///< lives on the main thread; what is queued goes with it
};

}  // namespace kzq
