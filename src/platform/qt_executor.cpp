#include "platform/qt_executor.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>
#include <algorithm>
#include <limits>
#include <utility>

namespace kzq {

QtExecutor::QtExecutor() : context_(std::make_unique<QObject>()) {}

QtExecutor::~QtExecutor() {
    endJobs();
}

void QtExecutor::main(Task task) {
    QMetaObject::invokeMethod(context_.get(), std::move(task), Qt::QueuedConnection);
}

void QtExecutor::mainAfter(Duration delay, Task task) {
    if (delay <= Duration::zero()) {
        main(std::move(task));
        return;
    }
    const auto due = now() + delay;
    auto start = [this, due, task = std::move(task)]() mutable {
        // a timer that fires early would break what the caller counts on: whole milliseconds, rounded up
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - now());
        constexpr std::chrono::milliseconds longest(std::numeric_limits<int>::max());
        QTimer::singleShot(std::clamp(left, std::chrono::milliseconds::zero(), longest), Qt::PreciseTimer,
                           context_.get(), std::move(task));
    };
    if (QThread::currentThread() == context_->thread()) {
        start();
    } else {
        main(std::move(start));
    }
}

}  // namespace kzq
