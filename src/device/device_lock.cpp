#include "device/device_lock.h"

#include <utility>

namespace kzq {

void DeviceLock::lock() {
    lockUnless([] { return false; });
}

bool DeviceLock::lockUnless(const std::function<bool()>& instead) {
    const auto me = std::this_thread::get_id();
    std::unique_lock guard(mutex_);
    const auto free = [this, me] { return depth_ == 0 || owner_ == me; };
    executor_.wait(guard, changed_, [&] { return free() || instead(); });
    if (!free()) {
        return false;
    }
    owner_ = me;
    ++depth_;
    return true;
}

void DeviceLock::reconsider() {
    const std::lock_guard guard(mutex_);
    changed_.notify();
}

void DeviceLock::unlock() {
    bool wake = false;
    {
        const std::lock_guard guard(mutex_);
        if (--depth_ > 0) {
            return;
        }
        owner_ = {};
        wake = std::exchange(wakeMain_, false);
        changed_.notify();
    }
    if (wake) {
        executor_.main([this] { runTurns(); });
    }
}

void DeviceLock::mainTurn(Executor::Task task) {
    turns_.push_back(std::move(task));
    runTurns();
}

bool DeviceLock::lockOrAskForWake() {
    const auto me = std::this_thread::get_id();
    const std::lock_guard guard(mutex_);
    if (depth_ > 0 && owner_ != me) {
        wakeMain_ = true;
        return false;
    }
    owner_ = me;
    ++depth_;
    return true;
}

void DeviceLock::runTurns() {
    if (running_) {
        return;
    }
    running_ = true;
    while (!turns_.empty() && lockOrAskForWake()) {
        const std::lock_guard guard(*this, std::adopt_lock);
        const auto task = std::move(turns_.front());  // tasks do not throw
        turns_.pop_front();
        task();
    }
    running_ = false;
}

}  // namespace kzq
