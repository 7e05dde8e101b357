#include "ctl/speech/options.h"

#include <algorithm>

#include "ctl/speech/command_line.h"
#include "ctl/speech/nearest.h"
#include "ctl/speech/slot_list.h"
#include "loops/facts.h"
#include "operations/sentences.h"

namespace kzq::ctl {
namespace {

constexpr double defaultPatience = 30;
constexpr double defaultLoaderPatience = 60;

/// A problem that CLI11 does not see for itself.
CLI::ValidationError usageError(const std::string& sentence) {
    return {sentence, CLI::ExitCodes::ValidationError};
}

Executor::Duration durationOf(double seconds) {
    return std::chrono::duration_cast<Executor::Duration>(std::chrono::duration<double>(seconds));
}

void completeSlots(Options& options, const Words& words) {
    const bool erase = options.subcommand == Subcommand::erase;
    const bool needed = erase || options.subcommand == Subcommand::import;
    if (needed && options.all == !words.slots.empty()) {
        throw usageError(std::string("Specify the loops to ") + (erase ? "erase" : "import") +
                         ": either slots such as 1 3-5 8, or --all.");
    }
    const auto slots = slotsFromWords(words.slots);
    if (!slots) {
        throw usageError(slotsSentence(slots.error()));
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
                throw usageError("--to requires the name of a folder.");
            }
            break;
        case Subcommand::backup:
        case Subcommand::diff:
        case Subcommand::restore:
            if (words.folder.empty()) {
                throw usageError("FOLDER must not be empty.");
            }
            break;
        case Subcommand::recording:
            if (words.output.empty()) {
                throw usageError("--to-pcapng requires the name of a file.");
            }
            break;
        case Subcommand::convert:
            if (words.output.empty()) {
                throw usageError("--to requires the name of a file.");
            }
            if (options.json && words.output == "-") {
                throw usageError("--json and --to - cannot be used together: both need standard output.");
            }
            break;
        default:
            break;
    }
}

/// Empty without that option.
std::string nameOf(const char* what, const char* option, const std::optional<std::string>& word) {
    if (word && word->empty()) {
        throw usageError(std::string(option) + " requires the name of a " + what + ".");
    }
    return word.value_or("");
}

void complete(CommandLine& line) {
    Options& options = line.options;
    const Words& words = line.words;
    options.simulate = line.simulate.given();
    options.simulatedFolder = line.simulate.order().folder;
    options.faults = line.simulate.order().faults;
    options.record = nameOf("file", "--record", words.record);
    options.replay = nameOf("file", "--replay", words.replay);
    options.report = nameOf("file", "--report", words.report);
    options.snapshot = nameOf("backup", "--snapshot", words.snapshot);
    if (!options.simulate && !options.faults.empty()) {
        throw usageError("--fault can only be used with --simulate.");
    }
    options.wait = durationOf(words.wait);
    const bool restarts = options.subcommand == Subcommand::firmwareInstall;
    options.patience =
        durationOf(words.patience.value_or(restarts ? defaultLoaderPatience : defaultPatience));
    completeSlots(options, words);
    completePaths(options, words);
    if (words.slot) {
        options.slot = slotFromWord(*words.slot).value();
    }
    if (options.slot && options.slot->number() + options.files.size() > loopSlots + 1) {
        throw usageError(std::to_string(options.files.size()) + " files do not fit into slots " +
                         std::to_string(options.slot->number()) + " to " + std::to_string(loopSlots) + ".");
    }
}

std::vector<std::string> commandsOf(const CLI::App& app) {
    std::vector<std::string> names;
    for (const auto* const subcommand : app.get_subcommands([](const auto*) { return true; })) {
        names.push_back(subcommand->get_name());
    }
    return names;
}

std::string unknownCommand(const CLI::App& app, const std::string& word) {
    const auto guess = nearest(word, commandsOf(app));
    return "There is no command \"" + word + "\"." + (guess.empty() ? "" : " Did you mean " + guess + "?");
}

std::string unknownOption(const CLI::App& app, const std::string& word) {
    std::vector<std::string> names;
    for (const auto* level = &app; level != nullptr; level = level->get_parent()) {
        for (const auto* const option : level->get_options()) {
            for (const auto& name : option->get_lnames()) {
                names.push_back("--" + name);
            }
        }
    }
    const auto guess = nearest(word.substr(0, word.find('=')), names);
    return "There is no option \"" + word + "\"." + (guess.empty() ? "" : " Did you mean " + guess + "?");
}

/// The subcommand that stands last on the command line, or the program itself.
const CLI::App& innermost(const CLI::App& app) {
    const auto parsed = app.get_subcommands();
    return parsed.empty() ? app : innermost(*parsed.front());
}

std::string withoutEnd(const std::string& text, std::string_view end) {
    return text.substr(0, text.size() - end.size());
}

/// What the parser has to say, in our own words.
std::string sentenceOf(const CLI::App& app, const CLI::ParseError& error) {
    const auto& place = innermost(app);
    const auto extra = app.remaining(true);
    std::string text = error.what();
    const bool lost = &place == &app && error.get_name() != "ValidationError";
    if (!extra.empty() && (lost || dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr)) {
        const auto word = std::ranges::find_if(extra, [](const auto& each) { return each.starts_with('-'); });
        if (word != extra.end()) {
            return unknownOption(place, *word);
        }
        return commandsOf(place).empty() ? "\"" + extra.front() + "\" is one argument too many."
                                         : unknownCommand(place, extra.front());
    }
    if (lost && error.get_name() == "RequiredError") {
        return "Which command? \"kzq7306ctl help\" lists them.";
    }
    if (text.ends_with(" missing")) {  // "--wait: 1 required SECONDS missing"
        return text.substr(0, text.find(':')) + " requires a value.";
    }
    if (text.ends_with(" is required")) {
        return withoutEnd(text, " is required") + " is missing.";
    }
    if (const auto between = text.find(" excludes "); between != std::string::npos) {
        return text.substr(0, between) + " cannot be used with " +
               text.substr(between + std::string_view(" excludes ").size()) + ".";
    }
    return text;
}

/// What to parse instead of `help`: the command it is about, with --help.
std::vector<std::string> helpRequest(const CommandLine& line) {
    const CLI::App* app = &line.app;
    for (const auto& word : line.words.topic) {
        const auto next =
            app->get_subcommands([&word](const CLI::App* each) { return each->get_name() == word; });
        if (next.empty()) {
            throw usageError(unknownCommand(*app, word));
        }
        app = next.front();
    }
    auto request = line.words.topic;
    request.emplace_back("--help");
    return request;
}

/// The parser takes "[a,b]" among files for a list of "a" and "b". As a path it stays one file, and as
/// anything else it is as wrong as it was.
void keepBrackets(std::vector<std::string>& arguments) {
    const std::string* before = nullptr;
    for (auto& word : arguments) {
        const bool path = before == nullptr || (*before != "--host" && *before != "--snapshot");
        if (path && word.starts_with('[') && word.ends_with(']')) {
            word.insert(0, "./");
        }
        before = &word;
    }
}

}  // namespace

ParsedOptions parseOptions(std::vector<std::string> arguments) {
    CommandLine line;
    const bool json = std::ranges::find(arguments.begin(), std::ranges::find(arguments, "--"), "--json") !=
                      std::ranges::find(arguments, "--");
    try {
        if (const auto mistake = simulator::SimulateOption::mistake(arguments); !mistake.empty()) {
            throw usageError(mistake);
        }
        keepBrackets(arguments);
        std::reverse(arguments.begin(), arguments.end());  // CLI11 takes them from the back
        line.app.parse(std::move(arguments));
        if (line.app.got_subcommand("help")) {
            auto help = parseOptions(helpRequest(line));
            help.json = json;
            return help;
        }
        complete(line);
    } catch (const CLI::CallForHelp&) {
        return {{}, ExitCode::ok, simulator::SimulateOption::readable(line.app.help()), json};
    } catch (const CLI::CallForVersion& version) {
        return {{}, ExitCode::ok, std::string(version.what()) + "\n", json};
    } catch (const CLI::ParseError& error) {
        std::string sentence = sentenceOf(line.app, error);
        sentence += sentence.ends_with('.') || sentence.ends_with('?') ? "" : ".";
        return {{}, ExitCode::usage, sentence + " See \"kzq7306ctl help\".", json};
    }
    return {std::move(line.options), ExitCode::ok, {}, json};
}

}  // namespace kzq::ctl
