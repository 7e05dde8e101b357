#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <string>
#include <vector>

#include "platform/log.h"
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

TEST(StandardExecutor, KeepsTasksForTheNextRunAfterStop) {
    StandardExecutor executor;
    int ran = 0;
    executor.main([&] { executor.stop(); });
    executor.main([&] {
        ++ran;
        executor.stop();
    });
    executor.run();
    EXPECT_EQ(ran, 0);
    executor.run();
    EXPECT_EQ(ran, 1);
}

TEST(VirtualExecutor, PassesTimeExactlyAndRunsEverythingDue) {
    test::VirtualExecutor executor;
    std::vector<std::string> events;
    const auto note = [&](const std::string& what) {
        events.push_back(what + "@" + std::to_string(executor.elapsed() / 1s) + "s");
    };
    executor.background(Priority::high, [&] {
        note("job");
        executor.sleep(8s);
        executor.main([&] { note(executor.onMainThread() ? "back on main" : "astray"); });
    });
    executor.mainAfter(5s, [&] { note("timer"); });
    executor.advance(4s);
    EXPECT_EQ(events, (std::vector<std::string>{"job@0s"}));
    executor.advance(1h);
    EXPECT_EQ(events, (std::vector<std::string>{"job@0s", "timer@5s", "back on main@8s"}));
    EXPECT_EQ(executor.elapsed(), 1h + 4s);
}

TEST(VirtualExecutor, WakesWaitersAndUnwindsThoseThatNobodyWakes) {
    std::mutex mutex;
    std::condition_variable changed;
    bool open = false;
    bool woken = false;
    bool unwound = false;
    struct Witness {
        bool& flag;
        ~Witness() { flag = true; }
    };
    {
        test::VirtualExecutor executor;
        executor.background(Priority::high, [&] {
            std::unique_lock lock(mutex);
            executor.wait(lock, changed, [&] { return open; });
            woken = true;
        });
        executor.background(Priority::high, [&] {
            const Witness witness{unwound};
            std::mutex own;
            std::unique_lock lock(own);
            executor.wait(lock, changed, [] { return false; });
        });
        executor.settle();
        EXPECT_FALSE(woken);
        open = true;
        executor.settle();
        EXPECT_TRUE(woken);
        std::unique_lock lock(mutex);
        EXPECT_THROW(executor.wait(lock, changed, [] { return false; }), std::logic_error);
        EXPECT_EQ(executor.mainThreadWaits(), 1U);
        EXPECT_FALSE(unwound);
    }
    EXPECT_TRUE(unwound);
}

TEST(Log, GoesToTheSinkThatIsSet) {
    std::vector<std::string> lines;
    const auto previous = setLogSink([&](LogCategory category, std::string_view line) {
        lines.push_back(std::string(logCategoryName(category)) + ": " + std::string(line));
    });
    log(LogCategory::usb, "one");
    setLogSink(previous);
    EXPECT_EQ(lines, (std::vector<std::string>{"usb: one"}));
}

}  // namespace
}  // namespace kzq
