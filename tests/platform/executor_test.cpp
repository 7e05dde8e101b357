#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <vector>

#include "platform/standard_executor.h"

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

}  // namespace
}  // namespace kzq
