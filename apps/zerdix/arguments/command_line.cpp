// SPDX-License-Identifier: MIT
#include "arguments/command_line.h"

#include <cstdio>
#include <string>

#include <CLI/CLI.hpp>

#include "output/failure.h"

namespace zerdix::app::cli {

namespace {

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

} // namespace

command_line::command_line(const char* name, const char* description, const char* version)
    : known_(std::make_shared<CLI::App>(description, name)) {
    known_->set_version_flag("--version", version, "Print the version and exit");
    known_->set_help_flag("-h,--help", "Print this help and exit");
    known_->require_subcommand(0, 1);
    known_->get_formatter()->column_width(34);
}

int command_line::run(int argc, char** argv) const {
    try {
        known_->parse(argc, argv);
        return known_->get_subcommands().empty() ? no_command(*known_) : exit_ok;
    } catch (const CLI::ParseError& error) {
        return wrong_usage(*known_, error);
    }
}

} // namespace zerdix::app::cli
