#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace kzq::manual {

/// What a value is, so that a shell knows what to offer for it.
enum class ValueKind { none, text, file, folder, command };

struct OptionText {
    std::vector<std::string> names;  ///< "-V", "--version"; of a positional its one name
    std::string value;               ///< "SECONDS", "[=FOLDER]"; empty for a flag
    ValueKind kind = ValueKind::none;
    std::string description;
    bool required = false;
    bool many = false;  ///< takes or is more than one word
};

struct CommandText {
    std::string name;  ///< the words behind the program's name, such as "firmware install"; empty: none
    std::string description;
    std::vector<OptionText> options;  ///< of its own, without --help
    std::vector<OptionText> positionals;
    std::vector<std::string> children;  ///< the last words of the commands under it
};

/// A program's command line, as its parser knows it.
struct ProgramText {
    std::string name;
    std::string description;
    std::string version;
    std::string footer;
    std::vector<OptionText> options;  ///< of the program itself
    std::vector<CommandText> commands;
    std::vector<OptionText> positionals;
};

ProgramText describe(const CLI::App& app, const std::string& version);

}  // namespace kzq::manual
