#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "device/kzq7306.h"
#include "device/libusb/libusb_port.h"
#include "device/simulator/emulated/umock_pedal.h"
#include "platform/standard_executor.h"

namespace kzq {

/// Counts the calls of the delegate. Main thread.
class Announcements : public KZQ7306Delegate {
  public:
    explicit Announcements(StandardExecutor& executor) : executor_(executor) {}

    void looperIsConnected(KZQ7306& /*looper*/) override { hear("connected"); }
    void looperHasBeenDisconnected() override { hear("disconnected"); }
    void looperInternalStateChanged(const Status& /*status*/) override {}

    std::vector<std::string> heard;

  private:
    void hear(const char* what) {
        heard.emplace_back(what);
        executor_.stop();
    }

    StandardExecutor& executor_;
};

/// The link and the real libusb, with a simulated pedal on an emulated bus. One program for each fixture,
/// since the link never releases libusb.
class LinkedPedalTest : public testing::Test {
  public:
  protected:
    explicit LinkedPedalTest(simulator::SimulatedPedal::Start start) : pedal_(executor_, std::move(start)) {
        delegate_.heard.clear();
        pedal_.plugIn();
        EXPECT_TRUE(waitUntilHeard(1));
    }

    ~LinkedPedalTest() override {
        delegate_.heard.clear();
        const bool wasThere = pedal_.isPlugged();
        pedal_.unplug();
        EXPECT_TRUE(!wasThere || waitUntilHeard(1));
        EXPECT_THAT(pedal_.violations(), testing::IsEmpty());
    }

    /// Runs the main queue until `done()`; everything that may change its answer stops the queue.
    bool runUntil(const std::function<bool()>& done) {
        const auto deadline = executor_.now() + patience;
        const auto waiting = std::make_shared<bool>(true);
        executor_.mainAfter(patience, [this, guard = std::weak_ptr(waiting)] {
            if (guard.lock()) {
                executor_.stop();
            }
        });
        while (!done() && executor_.now() < deadline) {
            executor_.run();
        }
        return done();
    }
    bool waitUntilHeard(std::size_t count) {
        return runUntil([&] { return delegate_.heard.size() >= count; });
    }
    /// For calls of the link on its own threads: runs them on the main thread, where they may end a wait.
    template <typename Task>
    void onMain(Task task) {
        executor_.main([this, task] {
            task();
            executor_.stop();
        });
    }
    static KZQ7306& looper() { return *KZQ7306::looper(); }

  private:
    /// What lives as long as the process, like the link's threads.
    struct World {
        StandardExecutor executor;
        LibusbPort usb{KZQ_READS_IN_FLIGHT};
        std::shared_ptr<Announcements> delegate = std::make_shared<Announcements>(executor);
    };

    static World& world() {
        static World& instance = *new World;  // NOLINT(cppcoreguidelines-owning-memory)
        return instance;
    }
    /// The link is loaded once, after the emulated bus has been made.
    static World& linked() {
        static World& instance = [&]() -> World& {
            auto& made = world();
            KZQ7306::load({made.executor, made.usb, [] { return std::uint64_t{36}; }});
            KZQ7306::initialize(made.delegate);
            return made;
        }();
        return instance;
    }

  protected:
    StandardExecutor& executor_ = world().executor;
    simulator::SimulatedPedal pedal_;
    UmockPedal bus_{pedal_};
    Announcements& delegate_ = *linked().delegate;
};

}  // namespace kzq
