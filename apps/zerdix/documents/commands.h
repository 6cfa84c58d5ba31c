// SPDX-License-Identifier: MIT
// The commands on documents.
#ifndef ZERDIX_APP_DOCUMENTS_COMMANDS_H
#define ZERDIX_APP_DOCUMENTS_COMMANDS_H

namespace CLI {
class App;
}

namespace zerdix::app {

void add_document_commands(CLI::App& app);

// Each adds itself below `parent`.
void add_list_command(CLI::App& parent);
void add_status_command(CLI::App& parent); // the outgoing list
void add_info_commands(CLI::App& parent);  // info, log
void add_pages_command(CLI::App& parent);  // page
void add_mark_commands(CLI::App& parent);  // comment, public, read
void add_copy_commands(CLI::App& parent);  // copy, forward, combine
void add_delete_command(CLI::App& parent);
void add_device_commands(CLI::App& parent); // print, scan
void add_cancel_command(CLI::App& parent);
void add_send_command(CLI::App& parent);
void add_job_commands(CLI::App& parent); // restart, change

} // namespace zerdix::app

#endif
