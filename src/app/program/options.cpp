#include "app/program/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace kzq {

namespace {

/// Stands for "--simulate" without a folder; no path that a user would give.
constexpr const char* builtInLoops = "//";
constexpr int usageStatus = 2;

void describe(CLI::App& app, ProgramOptions& options, std::string& simulate) {
    app.set_version_flag("--version", "kzq7306 " KZQ_VERSION);
    app.add_flag(std::string("--simulate{") + builtInLoops + "}", simulate,
                 "Use the built-in pedal, with the WAV files of FOLDER as its loops")
        ->option_text("[=FOLDER]");
    app.add_flag("--unplugged", options.unplugged, "The built-in pedal starts unplugged");
    app.add_option("--fault", options.faults,
                   "What goes wrong in the built-in pedal: KIND@WHERE[:COUNT][+], such as unplug@in:100 "
                   "(repeatable)")
        ->option_text("PLAN")
        ->allow_extra_args(false);
    app.add_option("--host", options.host, "Ask this server instead of the maker's")
        ->option_text("HOST[:PORT]");
    app.add_option("--authorities", options.authorities,
                   "Trust these certificates (PEM) instead of the system's")
        ->option_text("FILE");
}

/// Without what the parser shows of "--simulate" alone.
std::string readable(std::string help) {
    const auto inner = std::string("{") + builtInLoops + "} ";
    if (const auto place = help.find(inner); place != std::string::npos) {
        help.replace(place, inner.size(), std::string());
        help.insert(help.find("FOLDER]", place) + 7, inner.size(), ' ');
    }
    return help;
}

}  // namespace

ParsedProgramOptions parseProgramOptions(std::vector<std::string> arguments) {
    CLI::App app("7306 Loop Manager: the loops of a 7306 looper pedal.", "kzq7306");
    ProgramOptions options;
    std::string simulate;
    describe(app, options, simulate);
    if (std::ranges::find(arguments, "--simulate=") != arguments.end()) {  // the parser takes it for the flag
        return {std::nullopt, usageStatus, "kzq7306: --simulate= wants a folder.\n"};
    }
    std::reverse(arguments.begin(), arguments.end());  // as CLI11 wants them
    try {
        app.parse(arguments);
    } catch (const CLI::Success& asked) {  // help or version
        return {
            std::nullopt, 0,
            asked.get_name() == "CallForVersion" ? std::string(asked.what()) + "\n" : readable(app.help())};
    } catch (const CLI::ParseError& problem) {
        return {std::nullopt, usageStatus, std::string("kzq7306: ") + problem.what() + "\n"};
    }
    options.simulate = app.count("--simulate") > 0;
    if (options.simulate && simulate != builtInLoops) {
        options.simulatedFolder = simulate;
    }
    if (!options.simulate && (options.unplugged || !options.faults.empty())) {
        return {std::nullopt, usageStatus, "kzq7306: --unplugged and --fault work only with --simulate.\n"};
    }
    return {options, 0, {}};
}

}  // namespace kzq
