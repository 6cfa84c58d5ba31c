// The commands of zerdix. Each adds itself to the command line, with a callback that does the work
// and throws failure when it can't.
#ifndef ZERDIX_APP_COMMANDS_H
#define ZERDIX_APP_COMMANDS_H

namespace CLI {
class App;
}

namespace zerdix::app {

// The program's name, version, help and footer.
void describe(CLI::App& app);

// All of them, in the order in which the help names them.
void add_commands(CLI::App& app, char** arguments);

void add_print_command(CLI::App& app, char** arguments);
void add_page_command(CLI::App& app, char** arguments);
void add_telex_command(CLI::App& app, char** arguments);
void add_document_commands(CLI::App& app);
void add_book_commands(CLI::App& app);
void add_entry_commands(CLI::App& app);
void add_group_commands(CLI::App& app);
void add_user_commands(CLI::App& app);
void add_printer_commands(CLI::App& app);
void add_scanner_commands(CLI::App& app);
void add_preference_commands(CLI::App& app);
void add_replacement_commands(CLI::App& app);
void add_password_command(CLI::App& app);
void add_signature_commands(CLI::App& app);
void add_cover_commands(CLI::App& app);
void add_letterhead_commands(CLI::App& app);
void add_board_commands(CLI::App& app);
void add_completion_command(CLI::App& app);

} // namespace zerdix::app

#endif
