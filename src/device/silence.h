#pragma once

#include <atomic>
#include <functional>
#include <memory>

#include "platform/executor.h"
#include "platform/fixed.h"

namespace kzq {

class KZQ7306;

/// Notices a USB call that stays unanswered. Work between two calls, such as writing a file, is no silence.
/// Naps are counted, not the clock: a program that was stopped, or a computer that slept, has not waited for
/// the pedal.
class SilenceWatch : Fixed {
  public:
    /// Calls `silent` each time that a call has been out for another `limit` (0: for ever) beyond what its
    /// bytes may take: on a thread of the pool, at most a quarter of a second late. `executor` outlives it.
    SilenceWatch(Executor& executor, const std::shared_ptr<const KZQ7306>& link, Executor::Duration limit,
                 std::function<void()> silent);
    /// `silent` is not called any more, but a call of it may still be running.
    ~SilenceWatch();

  private:
    std::shared_ptr<std::atomic<bool>> over_ = std::make_shared<std::atomic<bool>>(false);
};

}  // namespace kzq
