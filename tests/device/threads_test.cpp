#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <utility>

#include "device/device_lock.h"
#include "platform/standard_executor.h"

namespace kzq::test {
namespace {

TEST(RealThreads, WhoeverWaitsForTheLockHearsThatTheAnswerHasChanged) {
    StandardExecutor executor;
    DeviceLock lock(executor);
    std::atomic<bool> batch = false;
    std::promise<void> held;
    std::promise<void> release;
    executor.background(Priority::high, [&] {
        const std::lock_guard guard(lock);
        held.set_value();
        release.get_future().wait();
    });
    held.get_future().wait();
    bool asked = false;
    EXPECT_FALSE(lock.lockUnless([&] {
        if (!std::exchange(asked, true)) {  // only now does another thread change the answer
            executor.background(Priority::high, [&] {
                batch = true;
                lock.reconsider();
            });
        }
        return batch.load();
    }));
    release.set_value();
    const std::lock_guard guard(lock);
}

TEST(DeviceLock, ATurnThatBringsAnotherEndsFirst) {
    StandardExecutor executor;
    DeviceLock lock(executor);
    std::string order;
    lock.mainTurn([&] {
        lock.mainTurn([&] { order += "inner"; });
        order += "outer ";
    });
    EXPECT_EQ(order, "outer inner");
}

}  // namespace
}  // namespace kzq::test
