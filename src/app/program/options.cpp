#include "app/program/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "device/simulator/simulate_option.h"

namespace kzq {

namespace {

constexpr int usageStatus = 2;

void describe(CLI::App& app, ProgramOptions& options) {
    app.set_version_flag("--version", "kzq7306 " KZQ_VERSION);
    app.add_flag("--unplugged", options.unplugged, "Start with the built-in pedal unplugged");
    app.add_option("--host", options.host, "Ask this server instead of the maker's")
        ->option_text("HOST[:PORT]");
    app.add_option("--authorities", options.authorities,
                   "Trust these certificates (PEM) instead of the system's")
        ->option_text("FILE");
}

}  // namespace

ParsedProgramOptions parseProgramOptions(std::vector<std::string> arguments) {
    CLI::App app("7306 Loop Manager: manages the loops of a 7306 looper pedal.", "kzq7306");
    ProgramOptions options;
    const simulator::SimulateOption simulate(app);
    describe(app, options);
    if (const auto mistake = simulator::SimulateOption::mistake(arguments); !mistake.empty()) {
        return {std::nullopt, usageStatus, "kzq7306: " + mistake + "\n"};
    }
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 expects
    try {
        app.parse(arguments);
    } catch (const CLI::Success& asked) {  // help or version
        return {std::nullopt, 0,
                asked.get_name() == "CallForVersion" ? std::string(asked.what()) + "\n"
                                                     : simulator::SimulateOption::readable(app.help())};
    } catch (const CLI::ParseError& problem) {
        return {std::nullopt, usageStatus, std::string("kzq7306: ") + problem.what() + "\n"};
    }
    options.simulate = simulate.given();
    options.simulatedFolder = simulate.order().folder;
    options.faults = simulate.order().faults;
    if (!options.simulate && (options.unplugged || !options.faults.empty())) {
        return {std::nullopt, usageStatus, "kzq7306: --unplugged and --fault work only with --simulate.\n"};
    }
    return {options, 0, {}};
}

}  // namespace kzq
