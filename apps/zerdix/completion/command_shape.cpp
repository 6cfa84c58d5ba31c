// SPDX-License-Identifier: MIT
#include "completion/command_shape.h"

#include <CLI/CLI.hpp>

namespace zerdix::app {

namespace {

// The words of one_of() stand in the name of its check.
std::vector<std::string> words_of(CLI::Option& option) {
    try {
        const std::string name = option.get_validator(0)->get_name();
        return name.empty() ? std::vector<std::string>() : CLI::detail::split(name, '|');
    } catch (const CLI::OptionNotFound&) {
        return {};
    }
}

option_shape option_of(CLI::Option& option) {
    option_shape shape;
    for (const std::string& name : option.get_snames())
        shape.names.push_back('-' + name);
    for (const std::string& name : option.get_lnames())
        shape.names.push_back("--" + name);
    shape.description = option.get_description();
    shape.takes_value = option.get_items_expected_max() > 0;
    shape.value = {option.get_option_text().starts_with("FILE"), words_of(option)};
    return shape;
}

argument_shape argument_of(CLI::Option& option) {
    const std::string name = option.get_name(true);
    return {
        name, option.get_items_expected_max() > 1, {name.starts_with("FILE"), words_of(option)}};
}

void add_all_commands(const std::string& name, const command_shape& shape,
                      std::vector<named_command>& all) {
    all.push_back({name, &shape});
    for (const command_shape& below : shape.commands)
        add_all_commands(name + ' ' + below.names.front(), below, all);
}

} // namespace

command_shape shape_of(cli::command command) {
    CLI::App& app = command.known();
    command_shape shape{{app.get_name()}, app.get_description(), {}, {}, {}};
    for (const std::string& alias : app.get_aliases())
        shape.names.push_back(alias);
    for (CLI::Option* option : app.get_options()) {
        if (option->nonpositional())
            shape.options.push_back(option_of(*option));
        else
            shape.arguments.push_back(argument_of(*option));
    }
    for (CLI::App* below : app.get_subcommands([](CLI::App*) { return true; }))
        shape.commands.push_back(shape_of(cli::command(*below)));
    return shape;
}

std::vector<named_command> all_commands(const command_shape& first) {
    std::vector<named_command> all;
    add_all_commands(first.names.front(), first, all);
    return all;
}

std::vector<std::string> spellings(const std::string& parent, const command_shape& command) {
    std::vector<std::string> all;
    for (const std::string& name : command.names)
        all.push_back(parent + ' ' + name);
    return all;
}

} // namespace zerdix::app
