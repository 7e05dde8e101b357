#include "app/program/termination.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "platform/log.h"

namespace kzq {

namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): a signal handler has nothing else
volatile std::sig_atomic_t wakeEnd = -1;

extern "C" void wake(int /*signal*/) {
    const int kept = errno;
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(wakeEnd, &byte, 1);
    errno = kept;
}

/// Waits for the next signal.
bool awaken(int end) {
    char byte = 0;
    ssize_t got = 0;
    do {
        got = ::read(end, &byte, 1);
    } while (got < 0 && errno == EINTR);
    return got == 1;
}

}  // namespace

void quitOnSignals(Executor& executor, std::function<void()> late) {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        log(LogCategory::application, "no pipe for signals, which now end the program at once");
        return;
    }
    ::fcntl(ends[1], F_SETFL, O_NONBLOCK);
    wakeEnd = ends[1];
    executor.service("com.kzq.signals", [&executor, late = std::move(late), end = ends[0]] {
        if (awaken(end)) {
            executor.main(&QCoreApplication::quit);
            late();
        }
    });
    struct sigaction action {};
    action.sa_handler = wake;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace kzq
