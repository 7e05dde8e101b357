#include "page.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace kzq::manual {
namespace {

std::string escaped(const std::string& text) {
    std::string result = text.starts_with('.') || text.starts_with('\'') ? "\\&" : "";
    for (const char c : text) {
        result += c == '\\' ? "\\e" : c == '-' ? "\\-" : std::string(1, c);
    }
    return result;
}

std::string upper(std::string text) {
    std::ranges::transform(text, text.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

std::string bold(const std::string& text) {
    return "\\fB" + escaped(text) + "\\fR";
}

void writeOption(std::ostream& out, const OptionText& option) {
    out << ".TP\n";
    for (std::size_t i = 0; i < option.names.size(); ++i) {
        out << (i == 0 ? "" : ", ") << bold(option.names[i]);
    }
    if (!option.value.empty() && option.value != option.names.front()) {
        out << (option.value.starts_with('[') ? "" : " ") << "\\fI" << escaped(option.value) << "\\fR";
    }
    out << "\n" << escaped(option.description) << ".\n";
}

std::string wordsOf(const std::vector<OptionText>& positionals) {
    std::string words;
    for (const auto& positional : positionals) {
        const std::string word = positional.names.front() + (positional.many ? "..." : "");
        words += " " + (positional.required ? word : "[" + word + "]");
    }
    return words;
}

void writeCommand(std::ostream& out, const CommandText& command) {
    out << ".SS " << escaped(command.name) << wordsOf(command.positionals) << "\n"
        << escaped(command.description) << ".\n";
    for (const auto& positional : command.positionals) {
        writeOption(out, positional);
    }
    for (const auto& option : command.options) {
        writeOption(out, option);
    }
}

/// The footer is sections: a heading that ends with a colon, then indented lines of a word and its meaning.
void writeFooter(std::ostream& out, const std::string& footer) {
    std::istringstream lines(footer);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(' ')) {
            out << ".SH " << upper(line.substr(0, line.find(':'))) << "\n";
            continue;
        }
        std::istringstream words(line);
        std::string key;
        std::string meaning;
        words >> key >> std::ws;
        std::getline(words, meaning);
        out << ".TP\n" << bold(key) << "\n" << escaped(meaning) << ".\n";
    }
}

}  // namespace

void writePage(std::ostream& out, const ProgramText& program, const std::vector<std::string>& seeAlso) {
    std::string what = program.description;
    what.erase(what.find_last_not_of('.') + 1);
    what.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(what.front())));
    out << ".TH " << upper(program.name) << R"( 1 "" "7306 Loop Manager )" << program.version << "\"\n"
        << ".SH NAME\n"
        << program.name << " \\- " << escaped(what) << "\n"
        << ".SH SYNOPSIS\n.B " << program.name << "\n[\\fIOPTIONS\\fR]";
    out << wordsOf(program.positionals)
        << (program.commands.empty() ? "\n" : " \\fICOMMAND\\fR [\\fIARGUMENTS\\fR]\n");
    out << ".SH DESCRIPTION\n" << escaped(program.description) << "\n";
    if (!program.commands.empty()) {
        out << ".SH COMMANDS\n";
    }
    for (const auto& command : program.commands) {
        writeCommand(out, command);
    }
    out << ".SH OPTIONS\n";
    for (const auto& positional : program.positionals) {
        writeOption(out, positional);
    }
    for (const auto& option : program.options) {
        writeOption(out, option);
    }
    writeFooter(out, program.footer);
    out << ".SH SEE ALSO\n";
    std::string between;
    for (const auto& other : seeAlso) {
        out << between << bold(other) << "(1)";
        between = ", ";
    }
    out << "\n";
}

}  // namespace kzq::manual
