#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "device/kzq7306.h"
#include "faulty_port.h"
#include "operations/pedal.h"
#include "platform/log.h"
#include "test_folder.h"
#include "virtual_executor.h"

namespace kzq::test {

using namespace std::chrono_literals;

/// The audio that a pedal holds.
using Memory = std::map<SlotNumber, Bytes>;
Memory memoryOf(const simulator::SimulatedPedal& pedal);
/// The same audio for the same seed; at a multiple of `scale`, which a long sweep raises.
Bytes audioOf(std::size_t frames, std::uint32_t seed);

/// In memory where there is room; a disk takes most of the time of a sweep.
std::filesystem::path quickPlace();

/// One computer with one pedal, for one case: the device link on the virtual clock, and a folder.
class World : Fixed {
  public:
    /// With loops in slots 1, 3 and 20; `stage` as on the wire.
    explicit World(char stage = stageNormal);
    ~World();

    /// Connects the pedal, as the program does at its start, and counts calls from `counted` on.
    void plugIn();
    /// The run that follows: as the window works with a pedal, or as the tool does, and whether a user
    /// cancels it when told of a silence.
    void begin(bool window, bool cancels);
    /// Does it on a thread of its own. Whether it ended within so much time.
    bool run(const Executor::Task& task, Executor::Duration limit = 2min);
    void set(SlotNumber slot, std::optional<Bytes> audio);

    /// What the pedal holds on which the run began, also if another one is there now.
    Memory held() const { return left_.value_or(memoryOf(pedal)); }
    /// Another one has taken its place.
    bool swapped() const { return left_.has_value(); }
    /// Whether the program ended in the middle.
    bool over() const { return over_; }
    /// Nothing has come to the pedal that took its place.
    void expectOtherUntouched() const;
    /// The pedal saw nothing that it must not see.
    void expectGoodManners() const;
    /// Whatever happened, the link comes to rest, and once the pedal is plugged in again it works.
    /// `leavesBehind`: nobody resets a pedal that has fallen silent.
    void expectRecovery(bool leavesBehind);

    VirtualExecutor executor;
    simulator::SimulatedPedal pedal;
    FaultyPort port{executor, pedal, [this](Mishap mishap, const UsbCall& call) { happen(mishap, call); }};
    TestFolder folder{quickPlace()};
    std::shared_ptr<Pedal> work;

    struct Delegate : KZQ7306Delegate {
        explicit Delegate(World& itsWorld) : world(itsWorld) {}
        void looperIsConnected(KZQ7306& looper) override;
        void looperHasBeenDisconnected() override;
        void looperInternalStateChanged(const Status& status) override { reported.push_back(status); }

        World& world;
        bool connected = false;
        std::vector<Status> reported;
    };
    std::shared_ptr<Delegate> delegate = std::make_shared<Delegate>(*this);

  private:
    void happen(Mishap mishap, const UsbCall& call);
    void expectIdle(bool mayHang);

    bool over_ = false;
    std::optional<Memory> left_;  ///< by the pedal that was taken away for another
    Memory other_;                ///< of that one, whose table is the same
    LogSink previousSink_;
};

/// Descriptors that this process has open.
std::size_t openDescriptors();

}  // namespace kzq::test
