#include <algorithm>

#include "completions.h"

namespace kzq::manual {
namespace {

std::string quotedText(const std::string& text) {
    std::string result = "'";
    for (const char c : text) {
        result += c == '\'' || c == '\\' ? std::string("\\") + c : std::string(1, c);
    }
    return result + "'";
}

std::string valueOf(ValueKind kind) {
    switch (kind) {
        case ValueKind::file:
            return " -r -F";
        case ValueKind::folder:
            return " -x -a '(__fish_complete_directories)'";
        case ValueKind::none:
            return "";
        default:
            return " -x";
    }
}

/// True where `command` is the one on the command line.
std::string conditionOf(const std::string& command) {
    std::string text;
    for (std::size_t start = 0; start <= command.size();) {
        const auto end = std::min(command.find(' ', start), command.size());
        text += (text.empty() ? "" : "; and ") +
                ("__fish_seen_subcommand_from " + command.substr(start, end - start));
        start = end + 1;
    }
    return " -n " + quotedText(text);
}

void writeOptions(std::ostream& out, const std::string& start, const std::vector<OptionText>& options) {
    for (const auto& option : options) {
        out << start;
        for (const auto& name : option.names) {
            out << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
        }
        out << (option.value.starts_with('[') ? "" : valueOf(option.kind)) << " -d "
            << quotedText(option.description) << "\n";
    }
}

}  // namespace

void writeFish(std::ostream& out, const ProgramText& program) {
    const std::string start = "complete -c " + program.name;
    out << "# fish completion for " << program.name << "\n"
        << start << (program.positionals.empty() ? " -f\n" : " -F\n");
    writeOptions(out, start, program.options);
    for (const auto& command : program.commands) {
        const auto space = command.name.rfind(' ');
        const std::string where = space == std::string::npos ? " -n __fish_use_subcommand"
                                                             : conditionOf(command.name.substr(0, space));
        out << start << where << " -a " << command.name.substr(space == std::string::npos ? 0 : space + 1)
            << " -d " << quotedText(command.description) << "\n";
        writeOptions(out, start + conditionOf(command.name), command.options);
        for (const auto& positional : command.positionals) {
            if (positional.kind == ValueKind::file) {
                out << start << conditionOf(command.name) << " -F\n";
            } else if (positional.kind == ValueKind::folder) {
                out << start << conditionOf(command.name) << " -a '(__fish_complete_directories)'\n";
            }
        }
    }
}

}  // namespace kzq::manual
