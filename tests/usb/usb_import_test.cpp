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
using simulator::SimulatedPedal;
using simulator::StoredLoop;
using testing::ElementsAre;
using testing::IsEmpty;

/// Counts what the delegate hears. Main thread.
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

/// What lasts as long as the process, since the link's threads do.
struct World {
    StandardExecutor executor;
    LibusbPort usb;
    std::shared_ptr<Announcements> delegate = std::make_shared<Announcements>(executor);
};

StoredLoop loopOf(std::size_t frames, std::uint8_t channel) {
    StoredLoop loop{Bytes(frames * 6), 93, channel};
    std::uint32_t noise = 7306U + channel;
    for (auto& byte : loop.audio) {
        noise = noise * 1'664'525 + 1'013'904'223;
        byte = static_cast<std::uint8_t>(noise >> 24);
    }
    return loop;
}

PedalMemory memoryOfFour() {
    PedalMemory memory;
    memory[0] = loopOf(1, 1);
    memory[9] = loopOf(171, 255);  // 2 bytes more than a piece
    memory[10] = loopOf(20'000, 2);
    memory[19] = loopOf(512, 3);  // whole pieces
    return memory;
}

class UsbImport : public testing::Test {
  protected:
    UsbImport() {
        delegate_.heard.clear();
        pedal_.plugIn();
        EXPECT_TRUE(runUntil([this] { return delegate_.heard.size() == 1; }));
    }

    ~UsbImport() override {
        delegate_.heard.clear();
        const bool wasThere = pedal_.isPlugged();
        pedal_.unplug();
        EXPECT_TRUE(runUntil([&] { return !wasThere || delegate_.heard.size() == 1; }));
        EXPECT_THAT(pedal_.violations(), IsEmpty());
    }

    /// The link is loaded once, after the emulated bus has been made.
    static World& linked() {
        static World& instance = *[] {
            auto* const made = new World;  // NOLINT(cppcoreguidelines-owning-memory)
            KZQ7306::load({made->executor, made->usb, [] { return std::uint64_t{36}; }});
            KZQ7306::initialize(made->delegate);
            return made;
        }();
        return instance;
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

    void startImport(const std::vector<std::uint8_t>& slots) {
        imported_.clear();
        count_.reset();
        const auto onMain = [this](auto task) {
            executor_.main([this, task] {
                task();
                executor_.stop();
            });
        };
        ASSERT_TRUE(looper().importLoops(
            slots, [](auto, auto) {},
            [this, onMain](const std::optional<Bytes>& file, std::uint8_t slot) {
                onMain([this, file, slot] { imported_[slot] = file; });
            },
            [this, onMain](std::uint8_t count) { onMain([this, count] { count_ = count; }); }));
    }
    bool runImport() {
        return runUntil([this] { return count_.has_value(); });
    }
    static KZQ7306& looper() { return *KZQ7306::looper(); }

    void expectImported(std::uint8_t slot) {
        ASSERT_TRUE(imported_[slot]) << "slot " << int{slot};
        const auto& file = *imported_[slot];
        EXPECT_TRUE(isPerfectWave(file, 2));
        EXPECT_EQ(lpcm(file), pedal_.memory().at(slot - 1U)->audio) << "slot " << int{slot};
    }

    SimulatedPedal::Start start_{.memory = memoryOfFour()};
    std::map<std::uint8_t, std::optional<Bytes>> imported_;
    std::optional<std::uint8_t> count_;
    // Its clock: the same as the link's, but not its main queue, which outlives it.
    StandardExecutor clock_;
    SimulatedPedal pedal_{clock_, start_};
    UmockPedal bus_{pedal_};
    World& world_ = linked();
    StandardExecutor& executor_ = world_.executor;
    Announcements& delegate_ = *world_.delegate;
};

TEST_F(UsbImport, ReadsEveryLoopBitForBit) {
    EXPECT_EQ(looper().stage(), 'p');
    startImport({20, 1, 10, 11});
    ASSERT_TRUE(runImport());
    EXPECT_EQ(count_, 4);
    for (const auto& [slot, file] : imported_) {
        expectImported(slot);
    }
}

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
    ASSERT_TRUE(runUntil([this] { return delegate_.heard.size() == 2; }));
    EXPECT_TRUE(looper().disconnected());

    pedal_.plugIn();
    ASSERT_TRUE(runUntil([this] { return delegate_.heard.size() == 3; }));
    EXPECT_THAT(delegate_.heard, ElementsAre("connected", "disconnected", "connected"));
    startImport({11});
    ASSERT_TRUE(runImport());
    expectImported(11);
}

TEST_F(UsbImport, AHostThatRefusesTheRequestShowsAsARefusal) {
    bus_.rules().checksRecipient = true;
    startImport({1, 11});
    ASSERT_TRUE(runImport());
    EXPECT_EQ(count_, 0);
    EXPECT_EQ(looper().lastFailure(), Failure::refused);
}

}  // namespace
}  // namespace kzq
