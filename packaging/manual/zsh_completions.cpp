#include "completions.h"

namespace kzq::manual {
namespace {

/// In single quotes, with what _arguments would take for its own escaped.
std::string escaped(const std::string& text, const std::string& special) {
    std::string result;
    for (const char c : text) {
        if (c == '\'') {
            result += "'\\''";
            continue;
        }
        result += special.find(c) != std::string::npos ? std::string("\\") + c : std::string(1, c);
    }
    return result;
}

const char* action(ValueKind kind) {
    switch (kind) {
        case ValueKind::file:
            return "_files";
        case ValueKind::folder:
            return "_files -/";
        default:
            return " ";
    }
}

std::string optionLines(const std::vector<OptionText>& options) {
    std::string text;
    for (const auto& option : options) {
        for (const auto& name : option.names) {
            const bool optional = option.value.starts_with('[');
            const char* const sign = option.value.empty()     ? ""
                                     : optional               ? "=-"
                                     : name.starts_with("--") ? "="
                                                              : "";
            text += "    '*" + name + sign + "[" + escaped(option.description, "[]:\\") + "]";
            if (!option.value.empty()) {
                text += optional ? "::FOLDER:" : ":" + option.value + ":";
                text += action(option.kind);
            }
            text += "'\n";
        }
    }
    return text;
}

std::string described(const ProgramText& program, const std::string& prefix) {
    std::string text;
    for (const auto& command : program.commands) {
        const bool below = command.name.starts_with(prefix);
        const std::string word = below ? command.name.substr(prefix.size()) : "";
        if (!word.empty() && word.find(' ') == std::string::npos) {
            text += " '" + word + ":" + escaped(command.description, "\\:") + "'";
        }
    }
    return text;
}

void writeCommand(std::ostream& out, const ProgramText& program, const CommandText& command) {
    out << "  '" << command.name << "')\n    _arguments -S $globals \\\n";
    std::string lines = optionLines(command.options);
    for (std::size_t end = lines.find('\n'); end != std::string::npos; end = lines.find('\n', end + 3)) {
        lines.replace(end, 1, " \\\n");
    }
    out << lines;
    const auto kind = command.positionals.empty() ? ValueKind::none : command.positionals.front().kind;
    const bool commands = !command.children.empty() || kind == ValueKind::command;
    out << "      '*: :" << (commands ? "->commands" : action(kind)) << "'\n";
    if (commands) {
        const std::string prefix = kind == ValueKind::command ? "" : command.name + " ";
        out << "    commands=(" << described(program, prefix) << ")\n";
    }
    out << "    ;;\n";
}

}  // namespace

void writeZsh(std::ostream& out, const ProgramText& program) {
    out << "#compdef " << program.name << "\n"
        << "local context state state_descr line command= i\n"
        << "typeset -A opt_args\n"
        << "local -a commands globals\n"
        << "globals=(\n"
        << optionLines(program.options) << ")\n"
        << "for ((i = 2; i < CURRENT; i++)); do\n  case \"$command ${words[i]}\" in\n";
    for (const auto& command : program.commands) {
        const bool nested = command.name.find(' ') != std::string::npos;
        out << "  '" << (nested ? "" : " ") << command.name << "') command='" << command.name << "' ;;\n";
    }
    out << "  esac\ndone\ncase $command in\n";
    for (const auto& command : program.commands) {
        writeCommand(out, program, command);
    }
    const bool commands = program.positionals.empty();
    out << "  '')\n    _arguments -S $globals '*: :"
        << (commands ? "->commands" : action(program.positionals.front().kind)) << "'\n    commands=("
        << described(program, "") << ")\n    ;;\nesac\n"
        << "if [[ $state = commands ]]; then\n  _describe command commands\nfi\n";
}

}  // namespace kzq::manual
