#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <vector>

#include "platform/standard_executor.h"
#include "virtual_executor.h"

using namespace std::chrono_literals;

namespace kzq {
namespace {

TEST(StandardExecutor, RunsMainTasksInOrderOnTheThreadThatRuns) {
    StandardExecutor executor;
    std::vector<int> order;
    const auto here = std::this_thread::get_id();
    executor.main([&] { order.push_back(1); });
    executor.background(Priority::background, [&] {
        executor.main([&] {
            EXPECT_TRUE(std::this_thread::get_id() == here);
            executor.mainAfter(1ms, [&] {
                order.push_back(3);
                executor.stop();
            });
            executor.main([&] { order.push_back(2); });
        });
    });
    executor.run();
    EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST(StandardExecutor, HasRoomForEveryJobThatBlocks) {
    StandardExecutor executor;
    std::promise<void> gate;
    const auto open = gate.get_future().share();
    constexpr int jobs = 20;
    std::atomic<int> started = 0;
    std::promise<void> allStarted;
    for (int i = 0; i < jobs; ++i) {
        executor.background(Priority::standard, [&, open] {
            if (++started == jobs) {
                allStarted.set_value();
            }
            open.wait();
        });
    }
    EXPECT_EQ(allStarted.get_future().wait_for(30s), std::future_status::ready);
    gate.set_value();
}

/// Often enough that the threads are also found waiting.
TEST(StandardExecutor, WakesWhoWaitsForAJobAndWhoWaitsForTheEnd) {
    StandardExecutor executor;
    for (int time = 0; time < 300; ++time) {
        executor.background(Priority::standard, [&] {
            std::promise<void> running;
            executor.main([&] { running.set_value(); });
            running.get_future().wait();
            executor.stop();
        });
        executor.run();
    }
}

TEST(VirtualExecutor, WakesOnlyWhoIsNotified) {
    test::VirtualExecutor executor;
    std::mutex mutex;
    Condition changed;
    bool ready = false;
    std::string events;
    executor.background(Priority::high, [&] {
        std::unique_lock lock(mutex);
        executor.wait(lock, changed, [&] { return ready; });
        events += "woken ";
    });
    executor.advance(1s);
    changed.notify();  // not ready
    executor.advance(1s);
    ready = true;  // not notified
    executor.advance(1s);
    events += "notified ";
    changed.notify();
    executor.advance(1s);
    EXPECT_EQ(events, "notified woken ");
}

TEST(VirtualExecutor, UnwindsWaitersThatNobodyWakesAndCountsTheMainThreads) {
    std::mutex mutex;
    Condition changed;
    bool unwound = false;
    struct Witness {
        bool& flag;
        ~Witness() { flag = true; }
    };
    {
        test::VirtualExecutor executor;
        executor.background(Priority::high, [&] {
            const Witness witness{unwound};
            std::unique_lock lock(mutex);
            executor.wait(lock, changed, [] { return false; });
        });
        executor.settle();
        std::mutex own;
        std::unique_lock lock(own);
        EXPECT_THROW(executor.wait(lock, changed, [] { return false; }), std::logic_error);
        EXPECT_EQ(executor.mainThreadWaits(), 1U);
        EXPECT_FALSE(unwound);
    }
    EXPECT_TRUE(unwound);
}

}  // namespace
}  // namespace kzq
