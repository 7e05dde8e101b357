#include "platform/thread_pool.h"

#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/log.h"

namespace kzq {

void ThreadPool::add(Priority priority, Executor::Task task) {
    const std::lock_guard guard(mutex_);
    if (ended_) {
        return;
    }
    jobs_.at(static_cast<std::size_t>(priority)).push_back(std::move(task));
    if (idle_ >= ++waiting_) {
        changed_.notify_one();
        return;
    }
    try {
        std::thread([self = shared_from_this()] { self->work(); }).detach();
        ++threads_;
    } catch (const std::system_error& error) {
        log(LogCategory::tool,
            std::string("no new thread for a job, which waits for a running one: ") + error.what());
    }
}

void ThreadPool::end() {
    decltype(jobs_) dropped;  // what they hold is let go of without the mutex, and before this returns
    std::unique_lock lock(mutex_);
    ended_ = true;
    dropped.swap(jobs_);
    changed_.notify_all();
    done_.wait(lock, [this] { return threads_ == 0; });
}

void ThreadPool::work() {
    std::unique_lock lock(mutex_);
    while (!ended_) {
        if (waiting_ == 0) {
            ++idle_;
            changed_.wait(lock, [this] { return waiting_ > 0 || ended_; });
            --idle_;
            continue;
        }
        auto task = take();
        lock.unlock();
        task();
        task = nullptr;  // destroys what it captured without the mutex held
        lock.lock();
    }
    --threads_;
    done_.notify_all();
}

Executor::Task ThreadPool::take() {
    --waiting_;
    for (auto& queue : jobs_) {
        if (!queue.empty()) {
            auto task = std::move(queue.front());
            queue.pop_front();
            return task;
        }
    }
    return [] {};
}

}  // namespace kzq
