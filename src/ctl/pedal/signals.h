#pragma once

#include <csignal>
#include <functional>
#include <memory>
#include <mutex>

#include "platform/executor.h"

namespace kzq::ctl {

/// Ctrl-C and its relatives (SIGINT, SIGTERM, SIGHUP), received by a thread of their own.
class Signals {
  public:
    /// Call it before any other thread is started: it keeps the signals away from them all. A signal that the
    /// parent had ignored (nohup) stays ignored.
    Signals();

    /// From here on a signal does nothing but call `heard`, on the signals' own thread, for the main thread
    /// may be stuck; an empty one ends that. Any thread.
    void hold(std::function<void()> heard);

    /// Queues `first` on the main thread at the first signal. `atOnce` runs on the signals' own thread, at
    /// the second one, or when the program is still there `limit` after the first: then the main thread is
    /// stuck.
    void listen(Executor& executor, std::function<void()> first, std::function<void()> atOnce,
                Executor::Duration limit);

  private:
    struct Holder {
        std::mutex mutex;
        std::function<void()> heard;
    };

    static bool tell(Holder& holder);

    sigset_t wanted_{};
    std::shared_ptr<Holder> holder_ = std::make_shared<Holder>();
};

}  // namespace kzq::ctl
