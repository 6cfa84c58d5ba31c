// SPDX-License-Identifier: MIT
#include "completion/scripts.h"
#include "completion/shell_text.h"

namespace zerdix::app {

namespace {

constexpr const char* head = R"(# bash completion of zerdix, written by "zerdix completion bash".

# $1 a command, $2 a word behind it: leads to the command below, in "at".
)";

constexpr const char* before_words = R"(
# $1 a command: what can stand behind it. An argument is a list of words, <file> or <text>; the last
# one comes again and again when "..." is behind it.
)";

// Words such as in:17 and --at=now reach the function in pieces.
constexpr const char* tail = R"(
_zerdix_offer() {
    case "$1" in
    '<file>')
        compopt -o filenames 2>/dev/null
        mapfile -t COMPREPLY < <(compgen -f -- "$2")
        ;;
    '<text>' | '') ;;
    *) mapfile -t COMPREPLY < <(compgen -W "${1//|/ }" -- "$2") ;;
    esac
}

_zerdix() {
    local at=zerdix value= commands= options= word cur=${COMP_WORDS[COMP_CWORD]}
    local -a arguments=()
    local -i i given=0
    COMPREPLY=()
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        case "$word" in
        : | =) i+=1 ;;
        -*)
            if _zerdix_value "$at" "$word"; then
                [[ ${COMP_WORDS[i + 1]} == = ]] && i+=1
                i+=1
            fi
            ;;
        *) _zerdix_step "$at" "$word" || given+=1 ;;
        esac
    done
    if ((i > COMP_CWORD)); then
        _zerdix_offer "$value" "${cur#=}"
        return
    fi
    _zerdix_words "$at"
    if [[ $cur == -* ]]; then
        _zerdix_offer "${options// /|}" "$cur"
    elif [[ -n $commands ]]; then
        _zerdix_offer "${commands// /|}" "$cur"
    elif ((given < ${#arguments[@]})) && [[ ${arguments[given]} != ... ]]; then
        _zerdix_offer "${arguments[given]}" "$cur"
    elif ((${#arguments[@]} > 1)) && [[ ${arguments[-1]} == ... ]]; then
        _zerdix_offer "${arguments[-2]}" "$cur"
    fi
}

complete -F _zerdix zerdix
)";

std::vector<std::string> command_names(const command_shape& command) {
    std::vector<std::string> names;
    for (const command_shape& below : command.commands)
        names.push_back(below.names.front());
    return names;
}

std::vector<std::string> option_names(const command_shape& command) {
    std::vector<std::string> names;
    for (const option_shape& option : command.options)
        names.insert(names.end(), option.names.begin(), option.names.end());
    return names;
}

std::string arguments(const command_shape& command) {
    std::string all;
    for (const argument_shape& argument : command.arguments)
        all += (all.empty() ? "" : " ") + quoted(value_word(argument.value)) +
               (argument.repeats ? " ..." : "");
    return all;
}

std::string words_function(const command_shape& program) {
    std::string text = "_zerdix_words() {\n    case \"$1\" in\n";
    for (const named_command& command : all_commands(program))
        text += case_branch({command.name},
                            "commands=" + quoted(joined(command_names(*command.shape), " ")) +
                                " options=" + quoted(joined(option_names(*command.shape), " ")) +
                                " arguments=(" + arguments(*command.shape) + ")");
    return text + "    esac\n}\n";
}

} // namespace

std::string bash_script(const command_shape& program) {
    return head + step_function(program) +
           "\n# $1 a command, $2 one of its options: what the option takes, in \"value\".\n" +
           value_function(program) + before_words + words_function(program) + tail;
}

} // namespace zerdix::app
