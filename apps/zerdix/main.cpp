// SPDX-License-Identifier: MIT
// zerdix, the command-line client.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <exception>
#include <poll.h>
#include <string>
#include <unistd.h>

#include <CLI/CLI.hpp>

#include "output/failure.h"
#include "program/command_list.h"
#include "session/user_command.h"

namespace {

using namespace zerdix::app;

// The command as far as it was understood, such as that of "zerdix doc list", and its name.
const CLI::App& understood(const CLI::App& app) {
    const auto below = app.get_subcommands();
    return below.empty() ? app : understood(*below.front());
}

std::string full_name(const CLI::App& app) {
    return app.get_parent() == nullptr ? app.get_name()
                                       : full_name(*app.get_parent()) + ' ' + app.get_name();
}

int no_command(const CLI::App& app) {
    const CLI::App* parent = app.get_parent();
    std::fputs(app.help(parent != nullptr ? full_name(*parent) : "").c_str(), stderr);
    return exit_usage;
}

std::string sentence(const CLI::App& last, const CLI::ParseError& error) {
    const auto unknown = last.remaining();
    const bool is_group = !last.get_subcommands([](const CLI::App*) { return true; }).empty();
    if (is_group && !unknown.empty())
        return '"' + unknown.front() + "\" is no command of " + full_name(last);
    const bool ahead = dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr && unknown.empty();
    if (ahead)
        return "options stand behind the command: " + full_name(last) + " [options]";
    return error.what();
}

int wrong_usage(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
        return app.exit(error);
    const CLI::App& last = understood(app);
    if (last.get_require_subcommand_min() > 0 && last.remaining().empty())
        return no_command(last);
    std::fprintf(stderr, "zerdix: %s\nTry \"%s --help\".\n", sentence(last, error).c_str(),
                 full_name(last).c_str());
    return exit_usage;
}

int run(CLI::App& app, int argc, char** argv) {
    try {
        app.parse(argc, argv);
        return app.get_subcommands().empty() ? no_command(app) : exit_ok;
    } catch (const CLI::ParseError& error) {
        return wrong_usage(app, error);
    } catch (const failure& error) {
        std::fprintf(stderr, "zerdix: %s\n", error.what());
        return error.code();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zerdix: internal error: %s\n", error.what());
        return exit_internal;
    }
}

bool nobody_reads() {
    pollfd out{STDOUT_FILENO, 0, 0};
    return ::poll(&out, 1, 0) == 1 && (out.revents & (POLLERR | POLLNVAL)) != 0;
}

// What was printed must have left whole, unless its reader wants no more of it.
int printed(int code) {
    errno = 0;
    const bool whole = std::fflush(stdout) == 0 && std::ferror(stdout) == 0;
    if (whole || code != exit_ok || nobody_reads())
        return code;
    std::fprintf(stderr, "zerdix: standard output can't be written%s%s\n", errno != 0 ? ": " : "",
                 errno != 0 ? std::strerror(errno) : "");
    return exit_no_output;
}

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // a server that goes away is a failed call
    set_program_arguments(argv);
    CLI::App app("Send faxes by way of an Alpha server, and look at their pages.");
    describe(app);
    add_commands(app, argv);
    return printed(run(app, argc, argv));
}
