#include "description.h"

#include <utility>

namespace kzq::manual {
namespace {

ValueKind kindOf(const std::string& value) {
    if (value.find("FOLDER") != std::string::npos) {
        return ValueKind::folder;
    }
    if (value.starts_with("FILE") || value.starts_with("OUT")) {
        return ValueKind::file;
    }
    if (value == "COMMAND") {
        return ValueKind::command;
    }
    return value.empty() ? ValueKind::none : ValueKind::text;
}

OptionText textOf(const CLI::Option& option) {
    OptionText text;
    for (const auto& name : option.get_snames()) {
        text.names.push_back("-" + name);
    }
    for (const auto& name : option.get_lnames()) {
        text.names.push_back("--" + name);
    }
    text.value = option.get_option_text();
    if (option.get_positional()) {
        text.names = {option.get_name(true)};
        text.value = text.names.front();
    }
    text.kind = kindOf(text.value);
    text.description = option.get_description();
    text.required = option.get_required();
    text.many = option.get_items_expected_max() > 1;
    return text;
}

template <class Command>
void addOptions(const CLI::App& app, Command& command) {
    for (const auto* const option : app.get_options()) {
        (option->get_positional() ? command.positionals : command.options).push_back(textOf(*option));
    }
}

void addCommands(const CLI::App& app, const std::string& prefix, ProgramText& program,
                 std::vector<std::string>* children) {
    for (const auto* const each : app.get_subcommands([](const auto*) { return true; })) {
        CommandText command;
        command.name = prefix + each->get_name();
        command.description = each->get_description();
        addOptions(*each, command);
        std::erase_if(command.options,
                      [](const OptionText& option) { return option.names.back() == "--help"; });
        if (children != nullptr) {
            children->push_back(each->get_name());
        }
        const auto place = program.commands.size();
        const std::string below = command.name + " ";
        program.commands.push_back(std::move(command));
        std::vector<std::string> names;
        addCommands(*each, below, program, &names);
        program.commands[place].children = std::move(names);
    }
}

}  // namespace

ProgramText describe(const CLI::App& app, const std::string& version) {
    ProgramText program;
    program.name = app.get_name();
    program.description = app.get_description();
    program.version = version;
    program.footer = app.get_footer();
    addOptions(app, program);
    addCommands(app, "", program, nullptr);
    return program;
}

}  // namespace kzq::manual
