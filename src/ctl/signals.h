#pragma once

#include <atomic>
#include <csignal>
#include <functional>
#include <memory>

#include "platform/executor.h"

namespace kzq::ctl {

/// Ctrl-C and its relatives (SIGINT, SIGTERM, SIGHUP), received by a thread of their own.
class Signals {
  public:
    /// Call it before any other thread is started: it keeps the signals away from them all. A signal that the
    /// parent had ignored (nohup) stays ignored.
    Signals();

    /// While held, every signal queues `first`, and `atOnce` never runs. Any thread.
    void hold(bool held) { *held_ = held; }

    /// Queues `first` on the main thread at the first signal. `atOnce` runs on the signals' own thread, at
    /// the second one, or when the program is still there `limit` after the first: then the main thread is
    /// stuck.
    void listen(Executor& executor, std::function<void()> first, std::function<void()> atOnce,
                Executor::Duration limit);

  private:
    sigset_t wanted_{};
    std::shared_ptr<std::atomic<bool>> held_ = std::make_shared<std::atomic<bool>>(false);
};

}  // namespace kzq::ctl
