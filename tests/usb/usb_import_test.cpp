#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "audio/wave.h"
#include "device/kzq7306.h"
#include "device/libusb/libusb_port.h"
#include "device/simulator/emulated/umock_pedal.h"
#include "platform/standard_executor.h"

namespace kzq {
namespace {

using simulator::Fault;
using simulator::FaultKind;
using simulator::PedalMemory;
using simulator::StoredLoop;
using testing::ElementsAre;

StoredLoop loopOf(std::size_t frames, std::uint8_t channel) {
    StoredLoop loop{Bytes(frames * 6), 93, channel};
    std::uint32_t noise = 7306U + channel;
    for (auto& byte : loop.audio) {
        noise = noise * 1'664'525 + 1'013'904'223;
        byte = static_cast<std::uint8_t>(noise >> 24);
    }
    return loop;
}

PedalMemory memoryOfThree() {
    PedalMemory memory;
    memory[0] = loopOf(1, 1);
    memory[10] = loopOf(20'000, 2);
    memory[19] = loopOf(512, 3);  // whole pieces
    return memory;
}

/// The calls of the delegate. Main thread.
struct Announcements : KZQ7306Delegate {
    explicit Announcements(StandardExecutor& itsExecutor) : executor(itsExecutor) {}

    void looperIsConnected(KZQ7306& /*looper*/) override { hear("connected"); }
    void looperHasBeenDisconnected() override { hear("disconnected"); }
    void looperInternalStateChanged(const Status& /*status*/) override {}
    void hear(const char* what) {
        heard.emplace_back(what);
        executor.stop();
    }

    StandardExecutor& executor;
    std::vector<std::string> heard;
};

/// What lives as long as the process, like the link's threads.
struct World {
    StandardExecutor executor;
    LibusbPort usb{KZQ_READS_IN_FLIGHT};
    std::shared_ptr<Announcements> delegate = std::make_shared<Announcements>(executor);
};

World& world() {
    static World& instance = *new World;  // NOLINT(cppcoreguidelines-owning-memory)
    return instance;
}

/// The link and the real libusb, with a simulated pedal on an emulated bus.
class UsbImport : public testing::Test {
  protected:
    UsbImport() {
        KZQ7306::load({executor_, world().usb, [] { return std::uint64_t{36}; }});
        KZQ7306::initialize(world().delegate);
        pedal_.plugIn();
        EXPECT_TRUE(waitUntilHeard(1));
    }
    ~UsbImport() override {
        pedal_.unplug();
        EXPECT_TRUE(waitUntilHeard(4));
        EXPECT_THAT(pedal_.violations(), testing::IsEmpty());
    }

    /// Runs the main queue until `done()`; everything that may change its answer stops the queue.
    bool runUntil(const std::function<bool()>& done) {
        const auto deadline = executor_.now() + patience;
        executor_.mainAfter(patience, [] { world().executor.stop(); });
        while (!done() && executor_.now() < deadline) {
            executor_.run();
        }
        return done();
    }
    bool waitUntilHeard(std::size_t count) {
        return runUntil([this, count] { return heard_.size() >= count; });
    }
    /// For calls of the link on its own threads: runs them on the main thread, where they may end a wait.
    template <typename Task>
    void onMain(Task task) {
        executor_.main([this, task] {
            task();
            executor_.stop();
        });
    }

    void startImport(const std::vector<std::uint8_t>& slots) {
        imported_.clear();
        count_.reset();
        ASSERT_TRUE(KZQ7306::looper()->importLoops(
            slots, [](auto, auto) {},
            [this](const std::optional<Bytes>& file, std::uint8_t slot) {
                onMain([this, file, slot] { imported_[slot] = file; });
            },
            [this](std::uint8_t count) { onMain([this, count] { count_ = count; }); }));
    }
    bool runImport() {
        return runUntil([this] { return count_.has_value(); });
    }

    void expectImported(std::uint8_t slot) {
        ASSERT_TRUE(imported_[slot]) << "slot " << int{slot};
        const auto& file = *imported_[slot];
        EXPECT_TRUE(isPerfectWave(file, 2));
        EXPECT_EQ(lpcm(file), pedal_.memory().at(slot - 1U)->audio) << "slot " << int{slot};
    }

    StandardExecutor& executor_ = world().executor;
    const std::vector<std::string>& heard_ = world().delegate->heard;
    simulator::SimulatedPedal pedal_{executor_, {.memory = memoryOfThree()}};
    UmockPedal bus_{pedal_};  // made before the link is loaded
    std::map<std::uint8_t, std::optional<Bytes>> imported_;
    std::optional<std::uint8_t> count_;
};

TEST_F(UsbImport, ADepartureInMidReadEndsItAtOnceAndTheReturnIsAnnounced) {
    pedal_.plan(
        {.kind = FaultKind::silence, .where = Fault::Where::bulkIn, .code = std::nullopt, .count = 50});
    startImport({1, 11, 20});
    ASSERT_TRUE(bus_.waitUntilBlocked());
    pedal_.unplug();
    ASSERT_TRUE(runImport());
    EXPECT_EQ(count_, 1);
    expectImported(1);
    EXPECT_EQ(imported_[11], std::nullopt);
    EXPECT_EQ(imported_[20], std::nullopt);
    ASSERT_TRUE(waitUntilHeard(2));
    EXPECT_TRUE(KZQ7306::looper()->disconnected());

    pedal_.plugIn();
    ASSERT_TRUE(waitUntilHeard(3));
    EXPECT_THAT(heard_, ElementsAre("connected", "disconnected", "connected"));
    startImport({11});
    ASSERT_TRUE(runImport());
    expectImported(11);
}

}  // namespace
}  // namespace kzq
