#pragma once

#include <functional>
#include <memory>

#include "platform/executor.h"

namespace kzq {

/// Asks the pedal whether it is busy without making the main thread wait. A pedal that does not answer soon
/// counts as busy; it keeps one thread of the pool, however often it is asked meanwhile.
class BusyQuestion {
  public:
    explicit BusyQuestion(Executor& executor) : executor_(executor) {}

    /// `answer` comes once, on the main thread, at most half a second later. Main thread.
    void ask(std::function<void(bool busy)> answer);

  private:
    Executor& executor_;
    std::shared_ptr<bool> unanswered_ = std::make_shared<bool>(false);  ///< main thread only
};

}  // namespace kzq
