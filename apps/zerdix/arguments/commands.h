// SPDX-License-Identifier: MIT
// The commands of zerdix. Each function adds its commands below the one that it is given, with a
// callback that does the work and throws failure when it can't.
#ifndef ZERDIX_APP_ARGUMENTS_COMMANDS_H
#define ZERDIX_APP_ARGUMENTS_COMMANDS_H

#include "arguments/command.h"

namespace zerdix::app {

// print/, pictures/: `arguments` are those of the program.
void add_print_command(cli::command app, char** arguments);
void add_telex_command(cli::command app, char** arguments);
void add_page_command(cli::command app, char** arguments);

// documents/
void add_document_commands(cli::command app);
void add_list_command(cli::command parent);
void add_status_command(cli::command parent); // the outgoing list
void add_info_commands(cli::command parent);  // info, log
void add_pages_command(cli::command parent);  // page
void add_mark_commands(cli::command parent);  // comment, public, read
void add_copy_commands(cli::command parent);  // copy, forward, combine
void add_delete_command(cli::command parent);
void add_device_commands(cli::command parent); // print, scan
void add_cancel_command(cli::command parent);
void add_send_command(cli::command parent);
void add_job_commands(cli::command parent); // restart, change

// books/
void add_book_commands(cli::command app);
void add_book_export(cli::command parent);
void add_book_import(cli::command parent);
void add_external_query(cli::command parent);
void add_entry_commands(cli::command app);
void add_group_commands(cli::command app);

// settings/
void add_user_commands(cli::command app);
void add_printer_commands(cli::command app);
void add_scanner_commands(cli::command app);
void add_preference_commands(cli::command app);
void add_replacement_commands(cli::command app);
void add_password_command(cli::command app);
void add_signature_commands(cli::command app);
void add_board_commands(cli::command app);

// cover/, completion/
void add_cover_commands(cli::command app);
void add_letterhead_commands(cli::command app);
void add_completion_command(cli::command app);

} // namespace zerdix::app

#endif
