#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "device/simulator/loop_folder.h"
#include "device/simulator/simulated_pedal.h"
#include "device/simulator/simulated_port.h"

namespace kzq::simulator {

/// What a program's options say about the simulated pedal.
struct SimulationOrder {
    std::filesystem::path folder;     ///< of WAV files, which are its memory; empty: built-in loops
    std::vector<std::string> faults;  ///< as faultFromText reads them
    LoopReader convert = {};          ///< for files in other formats; empty: they are refused
};

/// The simulated pedal with its port, as programs use it in place of a bus. Changes are saved in the folder,
/// if there is one. The pedal is off the bus until `pedal().plugIn()`.
class Simulation {
  public:
    /// Failures: badFault, and those of the folder.
    static Result<std::unique_ptr<Simulation>> make(Executor& executor, const SimulationOrder& order);

    SimulatedPedal& pedal() { return pedal_; }
    SimulatedPort& port() { return port_; }

  private:
    Simulation(Executor& executor, PedalMemory memory, LoopFolder folder);

    LoopFolder folder_;
    SimulatedPedal pedal_;
    SimulatedPort port_;
};

}  // namespace kzq::simulator
