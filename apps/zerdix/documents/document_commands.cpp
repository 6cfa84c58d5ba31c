// SPDX-License-Identifier: MIT
// zerdix doc: everything about documents.

#include "arguments/commands.h"
#include "session/user_command.h"

namespace zerdix::app {

void add_document_commands(cli::command app) {
    cli::command group =
        app.add_group("doc", "Documents: incoming, outgoing and those on the desk");
    group.alias("documents");
    add_list_command(group);
    add_info_commands(group);
    add_pages_command(group);
    add_mark_commands(group);
    add_copy_commands(group);
    add_device_commands(group);
    add_delete_command(group);
    add_cancel_command(group);
    add_job_commands(group);
    group.footer("A document is named by its number, or by in:17, out:17 or desk:17.\n"
                 "Example: zerdix doc list incoming --new");
    add_send_command(app);
    add_status_command(app);
    add_cancel_command(app);
}

} // namespace zerdix::app
