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
    if (QThread::currentThread() == context_->thread()) {
        startTimer(due, std::move(task));
    } else {
        main([this, due, task = std::move(task)] { startTimer(due, task); });
    }
}

/// Main thread. Not QTimer::singleShot, which would keep the task after the executor is gone.
void QtExecutor::startTimer(TimePoint due, Task task) {
    using std::chrono::milliseconds;
    constexpr milliseconds longest(std::numeric_limits<int>::max());
    auto* timer = new QTimer(context_.get());
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, task = std::move(task)] {
        timer->deleteLater();
        task();
    });
    // rounded up, because callers rely on the timer not firing early
    const auto left = std::chrono::ceil<milliseconds>(due - now());
    timer->start(std::clamp(left, milliseconds::zero(), longest));
}

}  // namespace kzq
