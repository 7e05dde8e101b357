#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kzq {

/// The command-line options of the window's program.
struct ProgramOptions {
    bool verbose = false;          ///< the log goes to standard error
    std::filesystem::path record;  ///< a new file for what goes over USB; empty: none
    unsigned readsInFlight = 1;    ///< from a pedal on USB
    bool simulate = false;
    std::filesystem::path simulatedFolder;     ///< empty: the simulated pedal's own loops
    std::vector<std::string> faults;           ///< for the simulated pedal, as given
    std::vector<std::filesystem::path> files;  ///< for the next free rows
    bool unplugged = false;                    ///< the simulated pedal starts off the bus
    std::string host;                          ///< in place of the maker's; empty: the maker's
    bool selfCheck = false;                    ///< see runSelfCheck
    std::filesystem::path authorities;  ///< certificates trusted instead of the system's; empty: the system's
};

/// Either `options`, or what to print and the exit status.
struct ParsedProgramOptions {
    std::optional<ProgramOptions> options;
    int status = 0;
    std::string text;
};

/// `arguments` does not include the program's name.
ParsedProgramOptions parseProgramOptions(std::vector<std::string> arguments);

}  // namespace kzq
