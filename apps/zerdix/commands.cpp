#include "commands.h"

namespace zerdix::app {

void add_commands(CLI::App& app, char** arguments) {
    add_print_command(app, arguments);
    add_page_command(app, arguments);
    add_telex_command(app, arguments);
    add_document_commands(app);
}

} // namespace zerdix::app
