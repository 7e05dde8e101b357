#include "device/simulator/simulate_option.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace kzq::simulator {

namespace {

/// Stands for "--simulate" without a folder; not a path that a user would give.
constexpr const char* builtInLoops = "//";

}  // namespace

SimulateOption::SimulateOption(CLI::App& app) : app_(app) {
    app.add_flag(std::string("--simulate{") + builtInLoops + "}", folder_,
                 "Use the built-in simulated pedal, with the WAV files in FOLDER as its loops")
        ->option_text("[=FOLDER]");
    app.add_option("--fault", faults_,
                   "Make the simulated pedal fail: KIND@WHERE[:COUNT][+], such as unplug@in:100 "
                   "(repeatable)")
        ->option_text("PLAN")
        ->allow_extra_args(false);
}

std::string SimulateOption::mistake(const std::vector<std::string>& arguments) {
    return std::ranges::find(arguments, "--simulate=") == arguments.end()
               ? ""
               : "--simulate= requires a folder name.";
}

std::string SimulateOption::readable(std::string help) {
    const auto mark = std::string("{") + builtInLoops + "} ";
    if (const auto place = help.find(mark); place != std::string::npos) {
        constexpr std::string_view lastWord = "FOLDER]";
        help.erase(place, mark.size());
        help.insert(help.find(lastWord, place) + lastWord.size(), mark.size(), ' ');
    }
    return help;
}

bool SimulateOption::given() const {
    return app_.count("--simulate") > 0;
}

SimulationOrder SimulateOption::order() const {
    return {given() && folder_ != builtInLoops ? folder_ : std::string(), faults_};
}

}  // namespace kzq::simulator
