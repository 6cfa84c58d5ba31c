// SPDX-License-Identifier: MIT
// zerdix password: a new password for the user.

#include <memory>
#include <string>

#include "arguments/commands.h"
#include "output/value_text.h"
#include "session/password.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::size_t password_width = 20;

std::string asked_twice(const std::string& user) {
    const std::string first = ask_password("New password of " + user + ": ");
    if (ask_password("New password, again: ") != first)
        throw failure(exit_usage, "the two aren't the same; the password stays as it is");
    return first;
}

std::string new_password(const std::string& user, const std::string& file) {
    const std::string typed = file.empty() ? asked_twice(user) : password_from_file(file);
    if (typed.empty())
        throw failure(exit_usage, "an empty password isn't taken; the password stays as it is");
    return field_text("the new password", typed, password_width);
}

// A settings file that still names the old one would lock its user out.
void note_settings() {
    if (const std::string file = settings_with_password(); !file.empty())
        note("the settings still give the old password: " + file);
}

void run(user_session& user, const session_options& options, const std::string& file) {
    const std::string wanted = new_password(user.user(), file);
    const call_probe watch;
    const std::int32_t result = user.session().chgPassword(user.password().c_str(), wanted.c_str());
    if (result == call_failed || result == call_without_connection)
        user.lost("changing the password", watch);
    if (result == result_unknown_user)
        throw failure(exit_no_permission, "the user " + user.user() + " is unknown");
    if (result == result_wrong_password)
        throw failure(exit_no_permission, "the old password is wrong");
    if (result != 0)
        throw failure(exit_refused,
                      "the server refused the new password (" + std::to_string(result) + ')');
    user.out().done("the password of " + user.user() + " is changed", {{"user", user.user()}});
    if (options.password_file.empty())
        note_settings();
}

} // namespace

void add_password_command(cli::command app) {
    auto options = std::make_shared<session_options>();
    auto file = std::make_shared<std::string>();
    cli::command command = add_user_command(
        app, "password", "Change your password",
        [options, file](user_session& user) { run(user, *options, *file); }, nullptr, options);
    command.alias("passwd");
    command.add_option("--old-file", options->password_file,
                       "Read the old password from a file, the same as --password-file", "FILE");
    command.add_option("--new-file", *file, "Read the new password from the first line of a file",
                       "FILE");
    command.footer("Without files it asks, and shows nothing of what is typed. A password has at "
                   "most 20\ncharacters and crosses the network in plain text.");
}

} // namespace zerdix::app
