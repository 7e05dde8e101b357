#include "platform/threaded_executor.h"

#include <pthread.h>

#include <thread>
#include <utility>

#include "platform/thread_pool.h"

namespace kzq {

ThreadedExecutor::ThreadedExecutor() : pool_(std::make_shared<ThreadPool>()) {}

ThreadedExecutor::~ThreadedExecutor() = default;

void ThreadedExecutor::endJobs() {
    pool_->end();
}

void ThreadedExecutor::background(Priority priority, Task task) {
    pool_->add(priority, std::move(task));
}

void ThreadedExecutor::service(std::string label, Task step) {
    constexpr std::size_t nameLimit = 15;  // longest name that the kernel keeps
    std::thread([pool = pool_, label = label.substr(label.size() - std::min(label.size(), nameLimit)),
                 step = std::move(step)] {
        pthread_setname_np(pthread_self(), label.c_str());
        while (!pool->ended()) {
            step();
        }
    }).detach();
}

Executor::TimePoint ThreadedExecutor::now() const {
    return std::chrono::steady_clock::now();
}

void ThreadedExecutor::sleep(Duration duration) {
    std::this_thread::sleep_for(duration);
}

void ThreadedExecutor::wait(std::unique_lock<std::mutex>& lock, Condition& changed,
                            const std::function<bool()>& ready) {
    changed.wait(lock, ready);
}

}  // namespace kzq
