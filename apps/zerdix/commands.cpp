#include "commands.h"

namespace zerdix::app {

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
    add_board_commands(app);
}

} // namespace zerdix::app
