// SPDX-License-Identifier: MIT
#include "completion/shell_text.h"

namespace zerdix::app {

namespace {

std::string replaced(std::string text, const std::string& what, const std::string& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size())
        text.replace(at, what.size(), by);
    return text;
}

} // namespace

std::string joined(const std::vector<std::string>& words, const std::string& between) {
    std::string all;
    for (const std::string& word : words)
        all += (all.empty() ? "" : between) + word;
    return all;
}

std::string quoted(const std::string& text) {
    return '\'' + replaced(text, "'", "'\\''") + '\'';
}

std::string fish_quoted(const std::string& text) {
    return '\'' + replaced(replaced(text, "\\", "\\\\"), "'", "\\'") + '\'';
}

std::string case_branch(const std::vector<std::string>& words, const std::string& command) {
    std::vector<std::string> patterns;
    for (const std::string& word : words)
        patterns.push_back(quoted(word));
    return "    " + joined(patterns, " | ") + ") " + command + " ;;\n";
}

std::string step_function(const command_shape& program) {
    std::string text = "_zerdix_step() {\n    case \"$1 $2\" in\n";
    for (const named_command& command : all_commands(program)) {
        for (const command_shape& below : command.shape->commands)
            text += case_branch(spellings(command.name, below),
                                "at=" + quoted(command.name + ' ' + below.names.front()));
    }
    return text + "    *) return 1 ;;\n    esac\n}\n";
}

std::string value_word(const value_shape& value) {
    if (value.is_file)
        return "<file>";
    return value.words.empty() ? "<text>" : joined(value.words, "|");
}

std::string value_function(const command_shape& program) {
    std::string text = "_zerdix_value() {\n    case \"$1 $2\" in\n";
    for (const named_command& command : all_commands(program)) {
        for (const option_shape& option : command.shape->options) {
            if (!option.takes_value)
                continue;
            std::vector<std::string> words;
            for (const std::string& name : option.names)
                words.push_back(command.name + ' ' + name);
            text += case_branch(words, "value=" + quoted(value_word(option.value)));
        }
    }
    return text + "    *) return 1 ;;\n    esac\n}\n";
}

} // namespace zerdix::app
