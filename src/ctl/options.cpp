#include "ctl/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>

#include "ctl/slot_list.h"
#include "device/commands.h"
#include "device/simulator/simulate_option.h"

namespace kzq::ctl {
namespace {

constexpr const char* footer =
    "Exit status:\n"
    "  0    all went well\n"
    "  2    the command line is not understood, or a question could not be asked\n"
    "  3    no pedal is connected, or it was unplugged\n"
    "  4    no permission to use the pedal\n"
    "  5    the pedal refused, is busy or in use, stopped answering, has no room, or the slot is empty\n"
    "  6    a file or folder could not be read, converted or written\n"
    "  7    some loops failed, or are not what they should be; the others went well\n"
    "  8    the maker's server could not be reached, or what it sent is not usable\n"
    "  130  cancelled, or a question was answered with no\n";

constexpr const char* globalHint = "\"kzq7306ctl --help\" lists the options that every subcommand has.\n\n";

constexpr double defaultPatience = 30;
constexpr double defaultLoaderPatience = 60;

struct Words {
    std::vector<std::string> slots;
    std::string folder;
    std::vector<std::string> files;
    unsigned slot = 0;
    bool firstFree = false;
    std::string output;
    std::optional<std::string> record;
    double wait = 0;
    std::optional<double> patience;
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

std::string checkSlot(const std::string& text) {
    unsigned slot = 0;
    if (CLI::detail::lexical_cast(text, slot) && slot >= 1 && slot <= loopSlots) {
        return {};
    }
    return "\"" + text + "\" is not a slot from 1 to " + std::to_string(loopSlots);
}

Executor::Duration durationOf(double seconds) {
    return std::chrono::duration_cast<Executor::Duration>(std::chrono::duration<double>(seconds));
}

void addGlobalOptions(CLI::App& app, Options& options, Words& words) {
    app.add_flag("--json", options.json,
                 "Machine-readable output: one document for list and firmware, one object a line else");
    app.add_flag("--verbose", options.verbose, "Show the log on standard error");
    app.add_option("--wait", words.wait, "Wait so long for a pedal to be plugged in")
        ->option_text("SECONDS")
        ->check(CLI::Validator(checkSeconds, ""));
    app.add_option("--patience", words.patience,
                   "Give up when the pedal is silent for so long (30, firmware install 60; 0: never)")
        ->option_text("SECONDS")
        ->check(CLI::Validator(checkSeconds, ""));
    app.add_option("--record", words.record,
                   "Write all that goes over USB into a new file, for whoever looks into a problem. It holds "
                   "the audio, too")
        ->option_text("FILE");
}

CLI::App* addSubcommand(CLI::App& app, Options& options, const char* name, Subcommand subcommand,
                        const std::string& description) {
    auto* const added = app.add_subcommand(name, description);
    added->callback([&options, subcommand] { options.subcommand = subcommand; });
    added->fallthrough()->footer(std::string(globalHint) + footer);
    return added;
}

void addSlots(CLI::App& subcommand, Options& options, Words& words) {
    subcommand.add_option("SLOTS", words.slots, "Slots from 1 to 20 and ranges, such as 1 3-5 8")
        ->option_text(" ");
    subcommand.add_flag("--all", options.all, "Every loop on the pedal");
}

void addYes(CLI::App& subcommand, Options& options) {
    subcommand.add_flag("--yes", options.yes, "Go ahead without a question");
}

void addReading(CLI::App& app, Options& options, Words& words) {
    addSubcommand(app, options, "list", Subcommand::list, "Show the loops and the free space on the pedal");

    auto* const import =
        addSubcommand(app, options, "import", Subcommand::import, "Copy loops from the pedal into WAV files");
    addSlots(*import, options, words);
    import
        ->add_option("--to", words.folder, "The folder for the files; made if only its last part is missing")
        ->option_text("FOLDER")
        ->required();

    auto* const backup = addSubcommand(
        app, options, "backup", Subcommand::backup,
        "Copy every loop into a folder with an index, from which \"restore\" brings them back. Run again "
        "after an interruption, it continues; run again after its end, it compares");
    backup->add_option("FOLDER", words.folder, "Made if only its last part is missing")
        ->option_text(" ")
        ->required();

    addSubcommand(app, options, "doctor", Subcommand::doctor,
                  "Tell what stands between you and the pedal, and the commands that mend it");

    addSubcommand(app, options, "watch", Subcommand::watch,
                  "Show the pedal's coming, going and changes as they happen, until Ctrl-C");
}

void addWriting(CLI::App& app, Options& options, Words& words) {
    auto* const sending = addSubcommand(app, options, "export", Subcommand::exportFiles,
                                        "Convert audio files and write them to the pedal");
    sending->add_option("FILE", words.files, "WAV, AIFF, MP3, M4A, AAC, AC3 or FLAC")
        ->option_text(" ")
        ->required();
    auto* const slot =
        sending->add_option("--slot", words.slot, "The slot of the first file; the others follow behind it")
            ->option_text("N")
            ->check(CLI::Validator(checkSlot, ""));
    sending->add_flag("--first-free", words.firstFree, "The first free slots; so it is without --slot, too")
        ->excludes(slot);
    sending->add_flag("--verify", options.verify, "Read each loop back and compare it, sample for sample");
    addYes(*sending, options);

    auto* const erase =
        addSubcommand(app, options, "erase", Subcommand::erase, "Erase loops on the pedal, for good");
    addSlots(*erase, options, words);
    addYes(*erase, options);

    auto* const restore = addSubcommand(
        app, options, "restore", Subcommand::restore,
        "Make the loops on the pedal those of a backup, bit for bit. Slots that are empty in the backup are "
        "erased. What is the same already is left alone, so it can be run again after an interruption. Only "
        "audio is written: the pedal takes no tempo and no channel from a computer");
    restore->add_option("FOLDER", words.folder, "Where the backup is")->option_text(" ")->required();
    addYes(*restore, options);

    auto* const convert = addSubcommand(app, options, "convert", Subcommand::convert,
                                        "Convert an audio file to the pedal's format, without a pedal");
    convert->add_option("FILE", words.files, "WAV, AIFF, MP3, M4A, AAC, AC3 or FLAC")
        ->option_text(" ")
        ->expected(1)
        ->required();
    convert->add_option("--to", words.output, "The new file; an existing one is never replaced")
        ->option_text("OUT.wav")
        ->required();
}

void addFirmware(CLI::App& app, Options& options, Words& words) {
    auto* const firmware = addSubcommand(app, options, "firmware", Subcommand::firmware,
                                         "Show the firmware that the pedal runs and the newest there is");
    auto* const install = addSubcommand(
        *firmware, options, "install", Subcommand::firmwareInstall,
        "Install the newest firmware, if it is newer than the pedal's, or a file. A pedal that runs only its "
        "loader is repaired in this way. Once begun it cannot be cancelled: the exit status then tells how "
        "it ended, also after Ctrl-C");
    install->add_option("FILE", words.files, "An image from the pedal's maker; it cannot be verified")
        ->option_text(" ")
        ->expected(0, 1);
    addYes(*install, options);
    // The callback of a subcommand's own subcommand comes first.
    firmware->callback([&options, install] {
        options.subcommand = install->parsed() ? Subcommand::firmwareInstall : Subcommand::firmware;
    });
}

void completeSlots(Options& options, const Words& words) {
    const bool erase = options.subcommand == Subcommand::erase;
    if (options.all == !words.slots.empty()) {
        throw usageError(std::string("Say which loops to ") + (erase ? "erase" : "import") +
                         ": either slots such as 1 3-5 8, or --all.");
    }
    std::string error;
    const auto slots = slotsFromWords(words.slots, error);
    if (!slots) {
        throw usageError(error);
    }
    options.slots = *slots;
}

void completePaths(Options& options, const Words& words) {
    options.folder = words.folder;
    options.output = words.output;
    options.files.assign(words.files.begin(), words.files.end());
    switch (options.subcommand) {
        case Subcommand::import:
            if (words.folder.empty()) {
                throw usageError("--to needs the name of a folder.");
            }
            break;
        case Subcommand::backup:
        case Subcommand::restore:
            if (words.folder.empty()) {
                throw usageError("FOLDER needs a name.");
            }
            break;
        case Subcommand::convert:
            if (words.output.empty()) {
                throw usageError("--to needs the name of a file.");
            }
            break;
        default:
            break;
    }
}

void complete(Options& options, const Words& words, const simulator::SimulateOption& simulate) {
    options.simulate = simulate.given();
    options.simulatedFolder = simulate.order().folder;
    options.faults = simulate.order().faults;
    if (words.record) {
        if (words.record->empty()) {
            throw usageError("--record needs the name of a file.");
        }
        options.record = *words.record;
    }
    if (!options.simulate && !options.faults.empty()) {
        throw usageError("--fault works only with --simulate.");
    }
    options.wait = durationOf(words.wait);
    const bool restarts = options.subcommand == Subcommand::firmwareInstall;
    options.patience =
        durationOf(words.patience.value_or(restarts ? defaultLoaderPatience : defaultPatience));
    if (options.subcommand == Subcommand::import || options.subcommand == Subcommand::erase) {
        completeSlots(options, words);
    }
    completePaths(options, words);
    if (words.slot != 0) {
        options.slot = static_cast<std::uint8_t>(words.slot);
    }
    if (options.slot && *options.slot + options.files.size() > loopSlots + 1) {
        throw usageError(std::to_string(options.files.size()) + " files do not fit into the slots from " +
                         std::to_string(*options.slot) + " to " + std::to_string(loopSlots) + ".");
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
    const simulator::SimulateOption simulate(app);
    addReading(app, options, words);
    addWriting(app, options, words);
    addFirmware(app, options, words);
    app.require_subcommand(1);
    try {
        if (const auto mistake = simulator::SimulateOption::mistake(arguments); !mistake.empty()) {
            throw usageError(mistake);
        }
        std::reverse(arguments.begin(), arguments.end());  // CLI11 takes them from the back
        app.parse(std::move(arguments));
        complete(options, words, simulate);
    } catch (const CLI::CallForHelp&) {
        return {{}, ExitCode::ok, simulator::SimulateOption::readable(app.help())};
    } catch (const CLI::CallForVersion& version) {
        return {{}, ExitCode::ok, std::string(version.what()) + "\n"};
    } catch (const CLI::ParseError& error) {
        std::string sentence = error.what();
        sentence += sentence.ends_with('.') ? "" : ".";
        return {{}, ExitCode::usage, sentence + " See \"kzq7306ctl --help\"."};
    }
    return {std::move(options), ExitCode::ok, {}};
}

}  // namespace kzq::ctl
