// zerdix, the command-line client.

#include <csignal>
#include <cstdio>
#include <exception>
#include <string>

#include <CLI/CLI.hpp>

#include "commands.h"
#include "failure.h"
#include "shell/user_command.h"

namespace {

using namespace zerdix::app;

void describe(CLI::App& app) {
    app.name("zerdix");
    app.set_version_flag("--version", "zerdix " ZERDIX_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.require_subcommand(0, 1);
    app.get_formatter()->column_width(34);
    app.footer("Settings are read from $ZERDIX_INI, ~/.config/zerdix/zerdix.ini or\n"
               "/etc/zerdix/zerdix.ini: User and Host in section [Zerdix].\n"
               "See zerdix(1), zerdix-print(1) and zerdix-page(1).");
}

// The command as far as it was understood: "zerdix doc list".
std::string understood(const CLI::App& app) {
    const auto below = app.get_subcommands();
    return below.empty() ? app.get_name() : app.get_name() + ' ' + understood(*below.front());
}

int wrong_usage(const CLI::App& app, const CLI::ParseError& error) {
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success))
        return app.exit(error);
    std::fprintf(stderr, "zerdix: %s\nTry \"%s --help\".\n", error.what(), understood(app).c_str());
    return exit_usage;
}

int no_command(const CLI::App& app) {
    std::fputs(app.help().c_str(), stderr);
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

} // namespace

int main(int argc, char** argv) {
    std::signal(SIGPIPE, SIG_IGN); // a server that goes away is a failed call
    set_program_arguments(argv);
    CLI::App app("Send faxes by way of an Alpha server, and look at their pages.");
    describe(app);
    add_commands(app, argv);
    return run(app, argc, argv);
}
