#include "ctl/pedal/signals.h"

#include <cerrno>
#include <utility>

namespace kzq::ctl {
namespace {

bool isIgnored(int signal) {
    struct sigaction present {};
    return sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

void waitFor(const sigset_t& wanted) {
    int signal = 0;
    while (sigwait(&wanted, &signal) != 0) {
    }
}

/// Until the next signal, or until `limit` has passed.
void waitFor(const sigset_t& wanted, Executor::Duration limit) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(limit);
    const timespec time{seconds.count(), static_cast<long>((limit - seconds).count())};
    while (sigtimedwait(&wanted, nullptr, &time) < 0 && errno == EINTR) {
    }
}

}  // namespace

Signals::Signals() {
    sigemptyset(&wanted_);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        if (!isIgnored(signal)) {
            sigaddset(&wanted_, signal);
        }
    }
    pthread_sigmask(SIG_BLOCK, &wanted_, nullptr);
}

void Signals::listen(Executor& executor, std::function<void()> first, std::function<void()> atOnce,
                     Executor::Duration limit) {
    executor.service("signals", [&executor, wanted = wanted_, holder = holder_, first = std::move(first),
                                 atOnce = std::move(atOnce), limit] {
        waitFor(wanted);
        if (tell(*holder)) {
            return;
        }
        executor.main(first);
        waitFor(wanted, limit);
        if (!tell(*holder)) {
            atOnce();
        }
    });
}

void Signals::hold(std::function<void()> heard) {
    const std::lock_guard guard(holder_->mutex);
    holder_->heard = std::move(heard);
}

/// False when nobody holds the signals.
bool Signals::tell(Holder& holder) {
    std::function<void()> heard;
    {
        const std::lock_guard guard(holder.mutex);
        heard = holder.heard;
    }
    if (heard) {
        heard();
    }
    return heard != nullptr;
}

}  // namespace kzq::ctl
