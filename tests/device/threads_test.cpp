#include <gtest/gtest.h>

#include <atomic>
#include <condition_variable>
#include <future>
#include <mutex>
#include <utility>

#include "device/kzq7306.h"
#include "device/simulator/simulated_port.h"
#include "platform/log.h"
#include "platform/standard_executor.h"

namespace kzq::test {
namespace {

using namespace std::chrono_literals;

/// Tracks when its background jobs have ended, since they use the pedal.
class CountedExecutor : public StandardExecutor {
  public:
    void background(Priority priority, Task task) override {
        {
            const std::lock_guard guard(mutex_);
            ++jobs_;
        }
        StandardExecutor::background(priority, [this, task = std::move(task)]() mutable {
            std::exchange(task, {})();  // what it holds goes before it counts as ended
            const std::lock_guard guard(mutex_);
            --jobs_;
            ended_.notify_all();
        });
    }
    bool jobsEnd() {
        std::unique_lock guard(mutex_);
        return ended_.wait_for(guard, 60s, [this] { return jobs_ == 0; });
    }

  private:
    std::mutex mutex_;
    std::condition_variable ended_;
    int jobs_ = 0;
};

/// Goes through connect, import, unplug during a transfer, return and import again; each event starts the
/// next step.
class Musician : public KZQ7306Delegate, public std::enable_shared_from_this<Musician> {
  public:
    Musician(StandardExecutor& executor, simulator::SimulatedPedal& pedal)
        : executor_(executor), pedal_(pedal) {}

    void looperIsConnected(KZQ7306& looper) override {
        ++connections;
        looper.refresh();
        looper.remaining([](std::uint32_t) {});
        const bool cable = connections == 1;
        const auto started = looper.importLoops(
            {1, 2, 3},
            [this, cable](std::uint32_t total, std::uint8_t) {
                executor_.main([this] { paint(); });
                if (cable && total > 100'000 && !pulled_.exchange(true)) {
                    executor_.background(Priority::background, [this] { pedal_.unplug(); });
                }
            },
            [this](const std::optional<std::vector<std::uint8_t>>& file, std::uint8_t) {
                loops += file ? 1 : 0;
            },
            [this](std::uint8_t) { executor_.main([this] { batchEnded(); }); });
        EXPECT_TRUE(started);
    }
    void looperHasBeenDisconnected() override {
        ++departures;
        executor_.background(Priority::standard, [this] { pedal_.plugIn(); });
    }
    void looperInternalStateChanged(const Status& status) override { EXPECT_LE(status.loops.size(), 3U); }

    std::atomic<int> loops = 0;
    int connections = 0;
    int departures = 0;
    int batches = 0;

  private:
    static void paint() {
        const auto looper = KZQ7306::looper();
        looper->version();
        looper->stage();
        looper->delegate();
        looper->operation();
    }
    void batchEnded() {
        if (++batches == 2) {
            executor_.stop();
        }
    }

    StandardExecutor& executor_;
    simulator::SimulatedPedal& pedal_;
    std::atomic<bool> pulled_ = false;
};

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

TEST(RealThreads, ImportSurvivesACablePulledInTheMiddle) {
    const auto silent = setLogSink([](LogCategory, std::string_view) {});
    CountedExecutor executor;
    simulator::PedalMemory memory;
    for (auto address : {0, 1, 2}) {
        memory.at(static_cast<std::size_t>(address)) = simulator::StoredLoop{Bytes(600'000, 0x5A), 120, 1};
    }
    simulator::SimulatedPedal pedal(executor, {memory});
    simulator::SimulatedPort port(executor, pedal);
    pedal.plugIn();
    KZQ7306::load({executor, port, [] { return 36; }});
    const auto musician = std::make_shared<Musician>(executor, pedal);
    bool late = false;
    executor.mainAfter(60s, [&] {
        late = true;
        executor.stop();
    });
    KZQ7306::initialize(musician);
    executor.run();
    EXPECT_FALSE(late);
    EXPECT_EQ(musician->connections, 2);
    EXPECT_EQ(musician->departures, 1);
    EXPECT_GE(musician->loops, 3);  // the second batch; of the first whatever was whole when the cable went
    EXPECT_TRUE(executor.jobsEnd());
    KZQ7306::unload();
    setLogSink(silent);
}

}  // namespace
}  // namespace kzq::test
