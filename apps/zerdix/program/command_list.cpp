// SPDX-License-Identifier: MIT
#include "program/command_list.h"

#include <zerdix/version.h>

#include "arguments/commands.h"

namespace zerdix::app {

cli::command_line zerdix_command_line(char** arguments) {
    cli::command_line line("zerdix",
                           "Send faxes by way of an Alpha server, and look at their pages.",
                           "zerdix " ZERDIX_VERSION);
    const cli::command app = line.top();
    app.footer(
        "Settings are read from ~/.config/zerdix/zerdix.ini, then from\n"
        "/etc/zerdix/zerdix.ini, or from $ZERDIX_INI alone: User and Host in section [Zerdix].\n"
        "See zerdix(1) and the pages that it names.");
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
    return line;
}

command_shape whole_command_line() {
    const cli::command_line line = zerdix_command_line(nullptr);
    return shape_of(line.top());
}

} // namespace zerdix::app
