// SPDX-License-Identifier: MIT
#include "session/user_command.h"

#include "session/settings_choice.h"

namespace zerdix::app {

namespace {

char** program_arguments = nullptr;

void add_shared_options(cli::command command, session_options& options) {
    const char* group = "Options of every command";
    command
        .add_option("-U,--user", options.user, "Work as this user (default: User of the settings)",
                    "ID")
        .under_heading(group);
    command
        .add_option("-H,--host", options.host, "Alpha server (default: Host of the settings)",
                    "NAME")
        .under_heading(group);
    command
        .add_option("--password-file", options.password_file,
                    "Read the password from the first line of a file; - for standard input", "FILE")
        .under_heading(group);
    command.add_option("--settings", options.settings, "Settings file to use", "FILE")
        .under_heading(group);
    command.add_flag("--json", options.as_json, "Print JSON").under_heading(group);
    command.add_flag("--quiet", options.quiet, "Print no progress and no closing sentence")
        .under_heading(group);
}

} // namespace

void set_program_arguments(char** arguments) {
    program_arguments = arguments;
}

cli::command add_user_command(cli::command parent, const char* name, const char* description,
                              std::function<void(user_session&)> work, std::function<void()> check,
                              std::shared_ptr<session_options> shared) {
    auto options = shared ? std::move(shared) : std::make_shared<session_options>();
    cli::command command = parent.add_command(name, description);
    add_shared_options(command, *options);
    command.callback([options, work = std::move(work), check = std::move(check)] {
        use_settings(options->settings, program_arguments);
        if (check)
            check();
        user_session user(*options);
        work(user);
    });
    return command;
}

} // namespace zerdix::app
