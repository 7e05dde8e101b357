#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "device/kzq7306.h"
#include "fake_usb.h"
#include "platform/log.h"
#include "virtual_executor.h"

namespace kzq::test {

using namespace std::chrono_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

/// Records each event with the second at which it happened.
class RecordingDelegate : public KZQ7306Delegate {
  public:
    explicit RecordingDelegate(VirtualExecutor& executor) : executor_(executor) {}

    void looperIsConnected(KZQ7306& looper) override { note(std::string("connected ") + looper.stage()); }
    void looperHasBeenDisconnected() override { note("disconnected"); }
    void looperInternalStateChanged(const Status& status) override {
        note("changed " + std::to_string(status.loops.size()));
        last = status;
    }

    std::vector<std::string> events;
    Status last;

  private:
    void note(const std::string& what) {
        EXPECT_TRUE(executor_.onMainThread());
        events.push_back(what + "@" + std::to_string(executor_.elapsed() / 1ms));
    }

    VirtualExecutor& executor_;
};

/// The device link on virtual time, over the port of the derived fixture.
class DeviceLinkTest : public testing::Test {
  public:
  protected:
    DeviceLinkTest() {
        previousSink_ = setLogSink([this](LogCategory category, std::string_view line) {
            if (category == LogCategory::device) {
                tags.emplace_back(line.substr(0, line.find(' ')));
            }
        });
    }
    ~DeviceLinkTest() override { setLogSink(previousSink_); }
    void TearDown() override {
        executor.endJobs();
        KZQ7306::unload();
    }

    void load(UsbPort& port, std::uint64_t systemMinorVersion = 36) {
        KZQ7306::load({executor, port, [systemMinorVersion] { return systemMinorVersion; }});
    }
    /// Starts the link as the program does and runs everything that is due at once.
    void start() {
        KZQ7306::initialize(delegate);
        executor.settle();
    }
    static KZQ7306& looper() { return *KZQ7306::looper(); }

    VirtualExecutor executor;
    std::shared_ptr<RecordingDelegate> delegate = std::make_shared<RecordingDelegate>(executor);
    std::vector<std::string> tags;  ///< first words of the device log

  private:
    LogSink previousSink_;
};

}  // namespace kzq::test
