// SPDX-License-Identifier: MIT
#include "completion/scripts.h"
#include "completion/shell_text.h"

namespace zerdix::app {

namespace {

constexpr const char* head = R"(#compdef zerdix
# zsh completion of zerdix, written by "zerdix completion zsh".

# $1 a command, $2 a word behind it: leads to the command below, in "at".
)";

constexpr const char* before_words = R"(
# $1 a command: what can stand behind it, commands and options with their descriptions. An argument
# is a list of words, <file> or <text>; the last one comes again when "..." is behind it.
)";

constexpr const char* tail = R"(
_zerdix_offer() {
    case "$1" in
    '<file>') _files ;;
    '<text>' | '') _message 'text' ;;
    *) compadd -- "${(@s:|:)1}" ;;
    esac
}

_zerdix() {
    local at=zerdix value word
    local -a subcommands options arguments
    local -i i given=0
    for ((i = 2; i < CURRENT; i++)); do
        word=${words[i]}
        case "$word" in
        --*=*) ;;
        -*) _zerdix_value "$at" "$word" && i+=1 ;;
        *) _zerdix_step "$at" "$word" || given+=1 ;;
        esac
    done
    if ((i > CURRENT)); then
        _zerdix_offer "$value"
        return
    fi
    if [[ ${words[CURRENT]} == --*=* ]] && _zerdix_value "$at" "${words[CURRENT]%%=*}"; then
        compset -P '*='
        _zerdix_offer "$value"
        return
    fi
    _zerdix_words "$at"
    if [[ ${words[CURRENT]} == -* ]]; then
        _describe -o 'option' options
    elif ((${#subcommands})); then
        _describe 'command' subcommands
    elif ((given < ${#arguments})) && [[ ${arguments[given + 1]} != ... ]]; then
        _zerdix_offer "${arguments[given + 1]}"
    elif [[ ${arguments[-1]} == ... ]]; then
        _zerdix_offer "${arguments[-2]}"
    fi
}

_zerdix "$@"
)";

// "name:description"; a colon within has a backslash.
std::string described(const std::string& name, const std::string& description) {
    std::string text = name + ':';
    for (const char c : description)
        text += c == ':' ? std::string("\\:") : std::string(1, c);
    return app::quoted(text);
}

std::string entries(const command_shape& command) {
    std::vector<std::string> commands, options, arguments;
    for (const command_shape& below : command.commands)
        commands.push_back(described(below.names.front(), below.description));
    for (const option_shape& option : command.options) {
        for (const std::string& name : option.names)
            options.push_back(described(name, option.description));
    }
    for (const argument_shape& argument : command.arguments) {
        arguments.push_back(app::quoted(value_word(argument.value)));
        if (argument.repeats)
            arguments.emplace_back("...");
    }
    return "subcommands=(" + joined(commands, " ") + ") options=(" + joined(options, " ") +
           ") arguments=(" + joined(arguments, " ") + ")";
}

std::string words_function(const command_shape& program) {
    std::string text = "_zerdix_words() {\n    case \"$1\" in\n";
    for (const named_command& command : all_commands(program))
        text += case_branch({command.name}, entries(*command.shape));
    return text + "    esac\n}\n";
}

} // namespace

std::string zsh_script(const command_shape& program) {
    return head + step_function(program) +
           "\n# $1 a command, $2 one of its options: what the option takes, in \"value\".\n" +
           value_function(program) + before_words + words_function(program) + tail;
}

} // namespace zerdix::app
