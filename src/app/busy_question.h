#pragma once

#include <functional>
#include <memory>

#include "platform/executor.h"

namespace kzq {

/// Asks the pedal whether it is busy, without blocking the main thread. A pedal that does not answer soon
/// counts as busy; it blocks one thread of the pool, however often it is asked meanwhile.
class BusyQuestion {
  public:
    explicit BusyQuestion(Executor& executor) : executor_(executor) {}

    /// `answer` is called once, on the main thread, within half a second. Main thread.
    void ask(std::function<void(bool busy)> answer);

  private:
    Executor& executor_;
    std::shared_ptr<bool> unanswered_ = std::make_shared<bool>(false);  ///< main thread only
};

}  // namespace kzq
