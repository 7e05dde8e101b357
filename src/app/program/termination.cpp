#include "app/program/termination.h"

#include <fcntl.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <csignal>

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

}  // namespace

void quitOnSignals() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        log(LogCategory::application, "no pipe for signals: they end the program at once");
        return;
    }
    wakeEnd = ends[1];
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the application's child
    auto* const notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read, qApp);
    QObject::connect(notifier, &QSocketNotifier::activated, qApp, [notifier] {
        notifier->setEnabled(false);
        QCoreApplication::quit();
    });
    struct sigaction action {};
    action.sa_handler = wake;
    action.sa_flags = SA_RESTART;
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ::sigaction(signal, &action, nullptr);
    }
}

}  // namespace kzq
