#include "ctl/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>

#include "ctl/slot_list.h"

namespace kzq::ctl {
namespace {

constexpr const char* footer =
    "Exit status:\n"
    "  0    all went well\n"
    "  2    the command line is not understood\n"
    "  3    no pedal is connected, or it was unplugged\n"
    "  4    no permission to use the pedal\n"
    "  5    the pedal refused, is busy or in use, stopped answering, or the slot is empty\n"
    "  6    a file or folder could not be written\n"
    "  7    some loops failed; the others are saved\n"
    "  130  cancelled\n";

constexpr const char* globalHint = "\"kzq7306ctl --help\" lists the options that every subcommand has.\n\n";

/// Stands for "--simulate" without a folder; no path that a user would give.
constexpr const char* builtInLoops = "//";
constexpr double defaultPatience = 30;

struct Words {
    std::string simulate;
    std::vector<std::string> slots;
    std::string folder;
    double wait = 0;
    double patience = defaultPatience;
};

/// A problem that CLI11 does not see for itself.
CLI::ValidationError usageError(const std::string& sentence) {
    return {sentence, CLI::ExitCodes::ValidationError};
}

std::string checkSeconds(const std::string& text) {
    constexpr double limit = 1e6;
    double seconds = -1;
    if (CLI::detail::lexical_cast(text, seconds) && seconds >= 0 && seconds <= limit) {
        return {};
    }
    return "\"" + text + "\" is not a number of seconds from 0 to 1000000";
}

Executor::Duration durationOf(double seconds) {
    return std::chrono::duration_cast<Executor::Duration>(std::chrono::duration<double>(seconds));
}

void addGlobalOptions(CLI::App& app, Options& options, Words& words) {
    app.add_flag("--json", options.json,
                 "Machine-readable output: one document for list, one object a line else");
    app.add_flag("--verbose", options.verbose, "Show the log on standard error");
    app.add_option("--wait", words.wait, "Wait so long for a pedal to be plugged in")
        ->option_text("SECONDS")
        ->check(CLI::Validator(checkSeconds, ""));
    app.add_option("--patience", words.patience,
                   "Give up when the pedal is silent for so long (30; 0: never)")
        ->option_text("SECONDS")
        ->check(CLI::Validator(checkSeconds, ""));
    app.add_flag(std::string("--simulate{") + builtInLoops + "}", words.simulate,
                 "Use a simulated pedal, with the WAV files of FOLDER as its loops")
        ->option_text("[=FOLDER]");
    app.add_option("--fault", options.faults,
                   "What goes wrong in the simulated pedal: KIND@WHERE[:COUNT][+], such as unplug@in:100 "
                   "(repeatable)")
        ->option_text("PLAN")
        ->allow_extra_args(false);
}

void addSubcommands(CLI::App& app, Options& options, Words& words) {
    auto* const list = app.add_subcommand("list", "Show the loops and the free space on the pedal");
    list->callback([&options] { options.subcommand = Subcommand::list; });

    auto* const copying = app.add_subcommand("import", "Copy loops from the pedal into WAV files");
    copying->add_option("SLOTS", words.slots, "Slots from 1 to 20 and ranges, such as 1 3-5 8")
        ->option_text(" ");
    copying->add_flag("--all", options.all, "Every loop on the pedal");
    copying->add_option("--to", words.folder, "The folder for the files; made if only its last part is missing")
        ->option_text("FOLDER")
        ->required();
    copying->callback([&options] { options.subcommand = Subcommand::import; });

    auto* const watch = app.add_subcommand(
        "watch", "Show the pedal's coming, going and changes as they happen, until Ctrl-C");
    watch->callback([&options] { options.subcommand = Subcommand::watch; });

    for (auto* const subcommand : {list, copying, watch}) {
        subcommand->fallthrough()->footer(std::string(globalHint) + footer);
    }
    app.require_subcommand(1);
}

void completeImport(Options& options, const Words& words) {
    if (options.all == !words.slots.empty()) {
        throw usageError("Say which loops to import: either slots such as 1 3-5 8, or --all.");
    }
    if (words.folder.empty()) {
        throw usageError("--to needs the name of a folder.");
    }
    std::string error;
    const auto slots = slotsFromWords(words.slots, error);
    if (!slots) {
        throw usageError(error);
    }
    options.slots = *slots;
    options.folder = words.folder;
}

void complete(Options& options, const Words& words, bool simulate) {
    options.simulate = simulate;
    if (simulate && words.simulate != builtInLoops) {
        options.simulatedFolder = words.simulate;
    }
    if (!simulate && !options.faults.empty()) {
        throw usageError("--fault works only with --simulate.");
    }
    options.wait = durationOf(words.wait);
    options.patience = durationOf(words.patience);
    if (options.subcommand == Subcommand::import) {
        completeImport(options, words);
    }
}

}  // namespace

ParsedOptions parseOptions(std::vector<std::string> arguments) {
    Options options;
    Words words;
    CLI::App app("Manages the loop memory of a 7306 looper pedal.", "kzq7306ctl");
    app.set_version_flag("--version", "kzq7306ctl " KZQ_VERSION);
    app.footer(footer);
    addGlobalOptions(app, options, words);
    addSubcommands(app, options, words);
    try {
        std::reverse(arguments.begin(), arguments.end());  // CLI11 takes them from the back
        app.parse(std::move(arguments));
        complete(options, words, app.count("--simulate") > 0);
    } catch (const CLI::CallForHelp&) {
        return {{}, ExitCode::ok, app.help()};
    } catch (const CLI::CallForVersion& version) {
        return {{}, ExitCode::ok, std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& error) {
        return {{}, ExitCode::usage, error.what()};
    }
    return {std::move(options), ExitCode::ok, {}};
}

}  // namespace kzq::ctl
