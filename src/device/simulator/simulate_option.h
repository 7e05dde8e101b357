#pragma once

#include <string>
#include <vector>

#include "device/simulator/simulation.h"

namespace CLI {
class App;
}

namespace kzq::simulator {

/// The command-line options for the simulated pedal: "--simulate", "--simulate=FOLDER" and its faults,
/// "--fault PLAN". Lives as long as the parser.
class SimulateOption {
  public:
    explicit SimulateOption(CLI::App& app);

    /// A sentence about a mistake, or nothing. Call it before parsing: the parser takes "--simulate=" for the
    /// option without a folder.
    static std::string mistake(const std::vector<std::string>& arguments);
    /// The parser's help text without its placeholder for the option's default.
    static std::string readable(std::string help);

    // After parsing.

    bool given() const;
    SimulationOrder order() const;

  private:
    CLI::App& app_;
    std::string folder_;
    std::vector<std::string> faults_;
};

}  // namespace kzq::simulator
