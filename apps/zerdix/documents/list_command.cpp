// SPDX-License-Identifier: MIT
// zerdix doc list, zerdix status.

#include <memory>

#include "arguments/commands.h"
#include "documents/document_records.h"
#include "documents/pool_list.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

struct list_line {
    std::string pool; // empty: all
    bool only_new = false, only_public = false, only_errors = false;
    int block = 0;
    std::int32_t from = first_block;
};

list_selection selection_of(const list_line& line) {
    if (line.only_new)
        return select_new;
    if (line.only_public)
        return select_public;
    return line.only_errors ? select_errors : select_all;
}

bool knows(topftype pool, list_selection which) {
    switch (which) {
    case select_new:
        return pool != TOPF_S;
    case select_public:
        return pool == TOPF_P;
    case select_errors:
        return pool == TOPF_S;
    default:
        return true;
    }
}

std::vector<topftype> pools_of(const list_line& line) {
    const auto named = pool_of_word(line.pool);
    if (named)
        return {*named};
    std::vector<topftype> fitting;
    for (const topftype pool : {TOPF_E, TOPF_S, TOPF_P}) {
        if (knows(pool, selection_of(line)))
            fitting.push_back(pool);
    }
    return fitting;
}

void check(const list_line& line) {
    if (line.only_new + line.only_public + line.only_errors > 1)
        throw failure(exit_usage, "only one of --new, --public and --errors can be chosen");
    if (!knows(pools_of(line).front(), selection_of(line)))
        throw failure(exit_usage, "--new is for incoming documents and the desk, --public for the "
                                  "desk, --errors for outgoing documents");
    if (line.block > 0 && pools_of(line).size() > 1)
        throw failure(exit_usage, "--block needs a pool: incoming, outgoing or desk");
}

json listed(user_session& user, const list_line& line) {
    json all = json::array();
    for (const topftype pool : pools_of(line)) {
        const list_selection which = selection_of(line);
        for (json& document : line.block > 0 ? list_block(user, pool, which, line.from, line.block)
                                             : list_pool(user, pool, which, line.from))
            all.push_back(std::move(document));
    }
    return all;
}

void list(user_session& user, const list_line& line) {
    json all = listed(user, line);
    const std::vector<topftype> pools = pools_of(line);
    if (pools.size() == 1)
        return user.out().rows(all, list_columns(pools.front()), "no such documents");
    if (!user.out().is_json()) {
        for (json& document : all)
            document = with_shared_names(std::move(document));
    }
    user.out().rows(all, shared_columns(), "no such documents");
}

cli::command add_list(cli::command parent, const char* name, const char* description,
                      const std::shared_ptr<list_line>& line) {
    cli::command command = add_user_command(
        parent, name, description, [line](user_session& user) { list(user, *line); },
        [line] { check(*line); });
    command.add_flag("--errors", line->only_errors, "Only outgoing documents with an error");
    command
        .add_option("--block", line->block, "At most N documents, in one block (default: all)", "N")
        .in_range(1, 1000000);
    command.add_option("--from", line->from, "From this document on", "ID").in_range(0, 2147483647);
    return command;
}

} // namespace

void add_list_command(cli::command parent) {
    auto line = std::make_shared<list_line>();
    cli::command command = add_list(parent, "list", "List documents", line);
    command.alias("ls");
    command.add_argument("POOL", line->pool, "incoming, outgoing or desk (default: all three)")
        .optional()
        .one_of({"incoming", "outgoing", "desk", "in", "out"});
    command.add_flag("--new", line->only_new, "Only documents that nobody has looked at yet");
    command.add_flag("--public", line->only_public, "Only public documents of all desks");
    command.footer("Example: zerdix doc list incoming --new");
}

void add_status_command(cli::command parent) {
    auto line = std::make_shared<list_line>();
    line->pool = "outgoing";
    cli::command command =
        add_list(parent, "status", "Show the outgoing documents and how far they are", line);
    command.alias("lpstat");
    command.footer("The same as zerdix doc list outgoing.\nExample: zerdix status --errors");
}

} // namespace zerdix::app
