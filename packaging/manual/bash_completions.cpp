#include <map>

#include "completions.h"

namespace kzq::manual {
namespace {

std::string namesOf(const std::vector<OptionText>& options) {
    std::string names;
    for (const auto& option : options) {
        for (const auto& name : option.names) {
            names += (names.empty() ? "" : " ") + name;
        }
    }
    return names;
}

std::vector<std::string> topCommands(const ProgramText& program) {
    std::vector<std::string> names;
    for (const auto& command : program.commands) {
        if (command.name.find(' ') == std::string::npos) {
            names.push_back(command.name);
        }
    }
    return names;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const auto& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

const char* generator(ValueKind kind) {
    switch (kind) {
        case ValueKind::file:
            return "-f";
        case ValueKind::folder:
            return "-d";
        default:
            return "";
    }
}

/// What is offered behind an option that takes a value, by option.
void collectValues(const std::vector<OptionText>& options, std::map<std::string, std::string>& values) {
    for (const auto& option : options) {
        for (const auto& name : option.names) {
            if (!option.value.empty() && !option.value.starts_with('[')) {
                values[name] = generator(option.kind);
            }
        }
    }
}

void writeValues(std::ostream& out, const std::string& command, const std::vector<OptionText>& options) {
    std::map<std::string, std::string> values;
    collectValues(options, values);
    for (const auto& [name, kind] : values) {
        out << "        \"" << command << " " << name << "\") ";
        out << (kind.empty() ? std::string()
                             : "mapfile -t COMPREPLY < <(compgen " + kind + " -- \"$cur\"); ");
        out << "return ;;\n";
    }
}

ValueKind kindOf(const std::vector<OptionText>& positionals) {
    return positionals.empty() ? ValueKind::none : positionals.front().kind;
}

void writeWords(std::ostream& out, const std::string& command, const std::string& words, ValueKind kind) {
    out << "        \"" << command << "\") words=\"" << words << "\" kind=" << generator(kind) << " ;;\n";
}

}  // namespace

void writeBash(std::ostream& out, const ProgramText& program) {
    const std::string globals = namesOf(program.options);
    const std::string top = joined(topCommands(program));
    out << "# bash completion for " << program.name << "\n"
        << "_" << program.name << "() {\n"
        << "    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]}\n"
        << "    local command= words= kind= i\n"
        << "    COMPREPLY=()\n"
        << "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
        << "        case \"$command ${COMP_WORDS[i]}\" in\n";
    for (const auto& command : program.commands) {
        const bool nested = command.name.find(' ') != std::string::npos;
        out << "        \"" << (nested ? "" : " ") << command.name << "\") command=\"" << command.name
            << "\" ;;\n";
    }
    out << "        esac\n    done\n"
        << "    case \"any $prev\" in\n";
    writeValues(out, "any", program.options);
    out << "    esac\n    case \"$command $prev\" in\n";
    for (const auto& command : program.commands) {
        writeValues(out, command.name, command.options);
    }
    out << "    esac\n    case \"$command\" in\n";
    for (const auto& command : program.commands) {
        const auto kind = kindOf(command.positionals);
        std::string names =
            kind == ValueKind::command ? top : joined(command.children) + " " + namesOf(command.options);
        names += " " + globals;
        writeWords(out, command.name, names, kind);
    }
    writeWords(out, "", top + " " + globals, kindOf(program.positionals));
    out << "    esac\n"
        << "    mapfile -t COMPREPLY < <(compgen -W \"$words\" -- \"$cur\"; [[ -z $kind ]] || compgen "
           "\"$kind\" -- \"$cur\")\n"
        << "}\n"
        << "complete -o filenames -F _" << program.name << " " << program.name << "\n";
}

}  // namespace kzq::manual
