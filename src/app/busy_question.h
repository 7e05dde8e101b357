#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "device/link.h"
#include "platform/executor.h"

namespace kzq {

/// Asks the pedal whether it is busy, without blocking the main thread. A pedal that does not answer soon
/// counts as busy; it blocks one thread of the pool, however often it is asked meanwhile.
class BusyQuestion {
  public:
    BusyQuestion(Executor& executor, Link link) : executor_(executor), link_(std::move(link)) {}

    /// `answer` is called once, on the main thread, within half a second. Main thread.
    void ask(std::function<void(bool busy)> answer);

  private:
    Executor& executor_;
    const Link link_;
    std::shared_ptr<bool> unanswered_ = std::make_shared<bool>(false);  ///< main thread only
};

}  // namespace kzq
