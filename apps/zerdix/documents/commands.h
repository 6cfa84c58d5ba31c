// SPDX-License-Identifier: MIT
// The commands on documents.
#ifndef ZERDIX_APP_DOCUMENTS_COMMANDS_H
#define ZERDIX_APP_DOCUMENTS_COMMANDS_H

#include "arguments/command.h"

namespace zerdix::app {

void add_document_commands(cli::command app);

// Each adds itself below `parent`.
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

} // namespace zerdix::app

#endif
