#include "device/silence.h"

#include "device_fixture.h"

namespace kzq::test {
namespace {

/// An executor in each of whose sleeps the computer is suspended for a while.
class Suspending : public Executor {
  public:
    Suspending(Executor& executor, Duration suspended) : executor_(executor), suspended_(suspended) {}

    void main(Task task) override { executor_.main(std::move(task)); }
    void mainAfter(Duration delay, Task task) override { executor_.mainAfter(delay, std::move(task)); }
    void background(Priority priority, Task task) override {
        executor_.background(priority, std::move(task));
    }
    void service(std::string label, Task step) override {
        executor_.service(std::move(label), std::move(step));
    }
    TimePoint now() const override { return executor_.now(); }
    void sleep(Duration duration) override { executor_.sleep(duration + suspended_); }
    void wait(std::unique_lock<std::mutex>& lock, Condition& changed,
              const std::function<bool()>& ready) override {
        executor_.wait(lock, changed, ready);
    }

  private:
    Executor& executor_;
    Duration suspended_;
};

class Silence : public DeviceLinkTest {
  protected:
    Silence() {
        KZQ7306::load({executor, usb, [] { return 36U; }, 3s});
        usb.replies[0xE9] = FakeUsb::reply('Y', 'p');
        start();
    }

    /// The seconds at which a watch with a limit of 10 s speaks during so many writes.
    std::vector<double> heard(unsigned writes, Executor::Duration each, std::size_t bytes = 1,
                              Executor::Duration suspended = {}) {
        usb.arrive();
        executor.settle();
        usb.bulk = [this, each](std::size_t, std::size_t&) { return executor.sleep(each), usbSuccess; };
        Suspending napping(executor, suspended);
        std::vector<double> times;
        const auto begin = executor.elapsed();
        bool ended = false;
        executor.background(Priority::high, [&] {
            for (unsigned i = 0; i < writes; ++i) {
                looper().write(Bytes(bytes));
            }
            ended = true;
        });
        {
            const SilenceWatch watch(napping, KZQ7306::looper(), 10s, [&] {
                times.push_back(std::chrono::duration<double>(executor.elapsed() - begin).count());
            });
            EXPECT_TRUE(executor.advanceUntil([&ended] { return ended; }));
        }
        executor.advance(1s + suspended);
        return times;
    }

    FakeUsb usb{executor};
};

TEST_F(Silence, IsOneCallThatStaysOut) {
    EXPECT_THAT(heard(1, 35s), ElementsAre(10, 20, 30));
    EXPECT_THAT(heard(5, 9s), IsEmpty());
}

TEST_F(Silence, LeavesABigWriteItsTime) {
    EXPECT_THAT(heard(1, 19s, std::size_t{10} * 65'536), IsEmpty());
    EXPECT_THAT(heard(1, 21s, std::size_t{10} * 65'536), ElementsAre(20));
}

TEST_F(Silence, IsNotTheTimeInWhichTheComputerIsSuspended) {
    EXPECT_THAT(heard(1, 30min, 1, 1min), IsEmpty());
}

}  // namespace
}  // namespace kzq::test
