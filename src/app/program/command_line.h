#pragma once

#include <CLI/CLI.hpp>

#include "app/program/options.h"
#include "device/simulator/simulate_option.h"

namespace kzq {

/// The description of the command line: --help, the manual page and the completions are made from it.
struct ProgramCommandLine {
    ProgramCommandLine();

    CLI::App app;
    simulator::SimulateOption simulate;
    ProgramOptions options;
};

}  // namespace kzq
