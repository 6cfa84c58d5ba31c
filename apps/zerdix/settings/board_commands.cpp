// SPDX-License-Identifier: MIT
// zerdix board: the bulletin board.

#include "arguments/commands.h"
#include "output/value_text.h"
#include "session/user_command.h"
#include <zerdix/values.h>

namespace zerdix::app {

namespace {

// No entries and a failed call look the same; a login that still stands tells them apart.
const a_board_entry* entries(user_session& user) {
    const call_probe watch;
    const a_board_entry* first = user.session().getBoardEntries(1);
    if (first == nullptr && ZERDIX::clsCheckLogin() != 0)
        user.lost("reading the bulletin board", watch);
    return first;
}

void list(user_session& user) {
    json all = json::array();
    for (const a_board_entry* entry = entries(user); entry != nullptr; entry = entry->next)
        all.push_back({{"id", shown(entry->boardid)},
                       {"time", iso_time(posted_at(*entry))},
                       {"text", shown(entry->text)}});
    user.out().rows(all, {{"time", "When"}, {"text", "Text"}}, "the bulletin board is empty");
}

} // namespace

void add_board_commands(cli::command app) {
    cli::command group = app.add_group("board", "The bulletin board");
    add_user_command(group, "list", "Show the bulletin board", list).alias("ls").alias("show");
}

} // namespace zerdix::app
