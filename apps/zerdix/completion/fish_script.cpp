// SPDX-License-Identifier: MIT
#include "completion/scripts.h"
#include "completion/shell_text.h"

namespace zerdix::app {

namespace {

constexpr const char* head = R"(# fish completion of zerdix, written by "zerdix completion fish".

# Prints the command that the line has come to, such as "zerdix doc list".
function __zerdix_command
    set -l at zerdix
    set -l skip 0
    for word in (commandline -opc)[2..-1]
        if test $skip -eq 1
            set skip 0
            continue
        end
        switch "$at $word"
)";

constexpr const char* tail_of_walk = R"(        end
    end
    echo $at
end

function __zerdix_at
    test (__zerdix_command) = "$argv"
end

complete -c zerdix -f
)";

std::string fish_case(const std::vector<std::string>& words, const std::string& command) {
    std::string text = "            case";
    for (const std::string& word : words)
        text += ' ' + fish_quoted(word);
    return text + "\n                " + command + '\n';
}

// Options that take the next word as their value, and words that lead to the command below.
std::string walk(const command_shape& program) {
    std::string text;
    for (const named_command& command : all_commands(program)) {
        std::vector<std::string> with_value;
        for (const option_shape& option : command.shape->options) {
            for (const std::string& name : option.names) {
                if (option.takes_value)
                    with_value.push_back(command.name + ' ' + name);
            }
        }
        if (!with_value.empty())
            text += fish_case(with_value, "set skip 1");
        for (const command_shape& below : command.shape->commands)
            text += fish_case(spellings(command.name, below),
                              "set at " + fish_quoted(command.name + ' ' + below.names.front()));
    }
    return text;
}

std::string line_at(const std::string& command) {
    return "complete -c zerdix -n " + fish_quoted("__zerdix_at " + command);
}

std::string value_of(const value_shape& value) {
    if (value.is_file)
        return " -F";
    return value.words.empty() ? "" : " -a " + fish_quoted(joined(value.words, " "));
}

std::string option_line(const std::string& command, const option_shape& option) {
    std::string text = line_at(command);
    for (const std::string& name : option.names)
        text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    if (option.takes_value)
        text += (option.value.is_file ? " -r" : " -x") + value_of(option.value);
    return text + " -d " + fish_quoted(option.description) + '\n';
}

std::string lines_of(const named_command& command) {
    std::string text;
    for (const command_shape& below : command.shape->commands)
        text += line_at(command.name) + " -a " + fish_quoted(below.names.front()) + " -d " +
                fish_quoted(below.description) + '\n';
    for (const option_shape& option : command.shape->options)
        text += option_line(command.name, option);
    for (const argument_shape& argument : command.shape->arguments) {
        if (const std::string value = value_of(argument.value); !value.empty())
            text += line_at(command.name) + value + '\n';
    }
    return text;
}

} // namespace

std::string fish_script(const command_shape& program) {
    std::string text = head + walk(program) + tail_of_walk;
    for (const named_command& command : all_commands(program))
        text += lines_of(command);
    return text;
}

} // namespace zerdix::app
