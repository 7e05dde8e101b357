#include "platform/standard_executor.h"

#include <map>
#include <utility>

namespace kzq {

/// Tasks by due time; equal times keep the order in which they were queued, since a multimap inserts after
/// equal keys.
struct StandardExecutor::MainQueue {
    std::mutex mutex;
    std::condition_variable changed;
    std::multimap<TimePoint, Task> tasks;
    bool stopped = false;
};

StandardExecutor::StandardExecutor() : main_(std::make_unique<MainQueue>()) {}

StandardExecutor::~StandardExecutor() {
    endJobs();
}

void StandardExecutor::run() {
    auto& [mutex, changed, tasks, stopped] = *main_;
    std::unique_lock lock(mutex);
    while (!std::exchange(stopped, false)) {
        if (tasks.empty()) {
            changed.wait(lock);
            continue;
        }
        if (const auto due = tasks.begin()->first; due > now()) {
            changed.wait_until(lock, due);
            continue;
        }
        auto task = std::move(tasks.begin()->second);
        tasks.erase(tasks.begin());
        lock.unlock();
        task();
        task = nullptr;
        lock.lock();
    }
}

void StandardExecutor::stop() {
    const std::lock_guard guard(main_->mutex);
    main_->stopped = true;
    main_->changed.notify_all();
}

void StandardExecutor::main(Task task) {
    mainAfter(Duration::zero(), std::move(task));
}

void StandardExecutor::mainAfter(Duration delay, Task task) {
    const std::lock_guard guard(main_->mutex);
    main_->tasks.emplace(now() + std::max(delay, Duration::zero()), std::move(task));
    main_->changed.notify_all();
}

}  // namespace kzq
