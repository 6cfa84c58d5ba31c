// SPDX-License-Identifier: MIT
#include "session/user_command.h"

#include "session/settings_choice.h"

namespace zerdix::app {

namespace {

char** program_arguments = nullptr;

void add_shared_options(CLI::App& command, session_options& options) {
    const char* group = "Options of every command";
    command
        .add_option("-U,--user", options.user, "Work as this user (default: User of the settings)")
        ->option_text("ID")
        ->group(group);
    command.add_option("-H,--host", options.host, "Alpha server (default: Host of the settings)")
        ->option_text("NAME")
        ->group(group);
    command
        .add_option("--password-file", options.password_file,
                    "Read the password from the first line of a file; - for standard input")
        ->option_text("FILE")
        ->group(group);
    command.add_option("--settings", options.settings, "Settings file to use")
        ->option_text("FILE")
        ->group(group);
    command.add_flag("--json", options.as_json, "Print JSON")->group(group);
    command.add_flag("--quiet", options.quiet, "Print no progress and no closing sentence")
        ->group(group);
}

} // namespace

void set_program_arguments(char** arguments) {
    program_arguments = arguments;
}

CLI::App* add_command_group(CLI::App& parent, const char* name, const char* description) {
    CLI::App* group = parent.add_subcommand(name, description);
    group->require_subcommand(1);
    return group;
}

CLI::App* add_user_command(CLI::App& parent, const char* name, const char* description,
                           std::function<void(user_session&)> work, std::function<void()> check,
                           std::shared_ptr<session_options> shared) {
    auto options = shared ? std::move(shared) : std::make_shared<session_options>();
    CLI::App* command = parent.add_subcommand(name, description);
    add_shared_options(*command, *options);
    command->callback([options, work = std::move(work), check = std::move(check)] {
        use_settings(options->settings, program_arguments);
        if (check)
            check();
        user_session user(*options);
        work(user);
    });
    return command;
}

} // namespace zerdix::app
