// SPDX-License-Identifier: MIT
#include "program/command_list.h"

#include <CLI/CLI.hpp>

#include <zerdix/version.h>

#include "books/commands.h"
#include "completion/commands.h"
#include "cover/commands.h"
#include "documents/commands.h"
#include "pictures/commands.h"
#include "print/commands.h"
#include "settings/commands.h"

namespace zerdix::app {

void describe(CLI::App& app) {
    app.name("zerdix");
    app.set_version_flag("--version", "zerdix " ZERDIX_VERSION, "Print the version and exit");
    app.set_help_flag("-h,--help", "Print this help and exit");
    app.require_subcommand(0, 1);
    app.get_formatter()->column_width(34);
    app.footer(
        "Settings are read from ~/.config/zerdix/zerdix.ini, then from\n"
        "/etc/zerdix/zerdix.ini, or from $ZERDIX_INI alone: User and Host in section [Zerdix].\n"
        "See zerdix(1) and the pages that it names.");
}

void add_commands(CLI::App& app, char** arguments) {
    add_print_command(app, arguments);
    add_page_command(app, arguments);
    add_telex_command(app, arguments);
    add_document_commands(app);
    add_book_commands(app);
    add_entry_commands(app);
    add_group_commands(app);
    add_user_commands(app);
    add_printer_commands(app);
    add_scanner_commands(app);
    add_preference_commands(app);
    add_replacement_commands(app);
    add_password_command(app);
    add_signature_commands(app);
    add_cover_commands(app);
    add_letterhead_commands(app);
    add_board_commands(app);
    add_completion_command(app);
}

command_shape whole_command_line() {
    CLI::App app;
    describe(app);
    add_commands(app, nullptr);
    return shape_of(app);
}

} // namespace zerdix::app
