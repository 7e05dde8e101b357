#include "platform/standard_executor.h"

#include <pthread.h>

#include <array>
#include <atomic>
#include <deque>
#include <map>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#include "platform/log.h"

namespace kzq {

/// Tasks by due time; equal times keep the order in which they were queued, as multimap inserts behind its
/// equals.
struct StandardExecutor::MainQueue {
    std::mutex mutex;
    std::condition_variable changed;
    std::multimap<TimePoint, Task> tasks;
    bool stopped = false;
};

/// Threads made on demand: a job starts at once on an idle thread or on a new one.
class StandardExecutor::Pool : public std::enable_shared_from_this<Pool> {
  public:
    void add(Priority priority, Task task) {
        const std::lock_guard guard(mutex_);
        if (ended) {
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
                std::string("no thread for a job, which waits for another: ") + error.what());
        }
    }

    void end() {
        std::unique_lock lock(mutex_);
        ended = true;
        changed_.notify_all();
        done_.wait(lock, [this] { return threads_ == 0; });
    }

    std::atomic<bool> ended = false;

  private:
    void work() {
        std::unique_lock lock(mutex_);
        while (!ended) {
            if (waiting_ == 0) {
                ++idle_;
                changed_.wait(lock, [this] { return waiting_ > 0 || ended; });
                --idle_;
                continue;
            }
            auto task = take();
            lock.unlock();
            task();
            task = nullptr;  // what it captured goes without the mutex held
            lock.lock();
        }
        --threads_;
        done_.notify_all();
    }

    Task take() {
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

    std::mutex mutex_;
    std::condition_variable changed_;
    std::condition_variable done_;
    std::array<std::deque<Task>, 3> jobs_;  // by priority, the highest first
    std::size_t waiting_ = 0;
    std::size_t idle_ = 0;
    std::size_t threads_ = 0;
};

StandardExecutor::StandardExecutor()
    : main_(std::make_unique<MainQueue>()), pool_(std::make_shared<Pool>()) {}

StandardExecutor::~StandardExecutor() {
    pool_->end();
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

void StandardExecutor::background(Priority priority, Task task) {
    pool_->add(priority, std::move(task));
}

void StandardExecutor::service(std::string label, Task step) {
    constexpr std::size_t nameLimit = 15;  // what the kernel keeps of a thread's name
    std::thread([pool = pool_, label = label.substr(label.size() - std::min(label.size(), nameLimit)),
                 step = std::move(step)] {
        pthread_setname_np(pthread_self(), label.c_str());
        while (!pool->ended) {
            step();
        }
    }).detach();
}

Executor::TimePoint StandardExecutor::now() const {
    return std::chrono::steady_clock::now();
}

void StandardExecutor::sleep(Duration duration) {
    std::this_thread::sleep_for(duration);
}

void StandardExecutor::wait(std::unique_lock<std::mutex>& lock, std::condition_variable& changed,
                            const std::function<bool()>& ready) {
    changed.wait(lock, ready);
}

}  // namespace kzq
