#include "app/program/options.h"

#include <algorithm>

#include "app/program/command_line.h"
#include "device/usb_port.h"

namespace kzq {

namespace {

constexpr int usageStatus = 2;

}  // namespace

ProgramCommandLine::ProgramCommandLine()
    : app("Manages the loops of a 7306 looper pedal in a window.", "kzq7306"), simulate(app) {
    app.set_help_flag("-h,--help", "Show this help and exit");
    app.set_version_flag("-V,--version", "kzq7306 " KZQ_VERSION, "Show the version and exit");
    app.add_option("FILE", options.files, "An audio file for the next free row of the Export tab")
        ->option_text("...");
    app.add_flag("--verbose", options.verbose, "Show the log on standard error");
    app.add_option("--record", options.record,
                   "Record all USB traffic, audio included, to a new file, for troubleshooting")
        ->option_text("FILE");
    app.add_flag("--unplugged", options.unplugged, "Start with the simulated pedal unplugged");
    app.add_option(
           "--in-flight", options.readsInFlight,
           "Ask a pedal on USB for up to N pieces of a loop at once, 1 to 32, which is faster (default "
           "1; no real pedal has been tried with more)")
        ->option_text("N")
        ->check(CLI::Range(1U, mostReadsInFlight));
    app.add_option("--host", options.host, "Ask this server for updates, not the maker's")
        ->option_text("HOST[:PORT]");
    app.add_option("--authorities", options.authorities,
                   "Trust these certificates (PEM) instead of the system's")
        ->option_text("FILE");
    app.add_flag("--self-check", options.selfCheck,
                 "Check that the program starts, without a pedal or a window, and exit");
}

ParsedProgramOptions parseProgramOptions(std::vector<std::string> arguments) {
    ProgramCommandLine line;
    auto& [app, simulate, options] = line;
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
    if (app.count("--record") != 0 && options.record.empty()) {
        return {std::nullopt, usageStatus, "kzq7306: --record requires the name of a file.\n"};
    }
    if (!options.simulate && (options.unplugged || !options.faults.empty())) {
        return {std::nullopt, usageStatus,
                "kzq7306: --unplugged and --fault can only be used with --simulate.\n"};
    }
    return {options, 0, {}};
}

}  // namespace kzq
