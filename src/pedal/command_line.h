#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "pedal/pedal_options.h"

namespace kzq::pedal {

/// The description of the command line: --help, the manual page and the completions are made from it.
struct CommandLine {
    CommandLine();

    CLI::App app;
    Options options;
    bool blank = false;
    std::vector<std::string> channels;  ///< as given
    std::vector<std::string> faults;    ///< as given
};

}  // namespace kzq::pedal
