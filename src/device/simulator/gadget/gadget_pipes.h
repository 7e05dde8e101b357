#pragma once

#include <atomic>
#include <condition_variable>
#include <filesystem>
#include <functional>
#include <mutex>
#include <thread>

#include "device/simulator/simulated_pedal.h"
#include "platform/descriptor.h"
#include "platform/fixed.h"

namespace kzq::simulator {

/// The two bulk pipes of a gadget, from a configuration by the host to the next or to a reset; each has a
/// thread.
class GadgetPipes : Fixed {
  public:
    /// Opens the endpoints' files in `folder`; a failure is logged, and then nothing moves. `packet`: the
    /// bytes of a full one at the speed of the bus.
    GadgetPipes(SimulatedPedal& pedal, const std::filesystem::path& folder, std::size_t packet);
    ~GadgetPipes();

    /// The pedal may have something to say now.
    void reconsider();
    /// Lets the audio that the computer has sent reach the pedal, which comes after a packet is acknowledged.
    void drain();

  private:
    void send();
    void receive();
    bool waitFor(const std::function<bool()>& ready);
    void run(std::thread& thread, void (GadgetPipes::*work)());

    SimulatedPedal& pedal_;
    std::size_t packet_;
    Descriptor in_;
    Descriptor out_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t changes_ = 0;
    std::atomic<bool> over_ = false;
    std::atomic<int> running_ = 0;
    std::thread sending_;
    std::thread receiving_;
};

}  // namespace kzq::simulator
