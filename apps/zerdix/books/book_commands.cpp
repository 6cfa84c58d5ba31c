// SPDX-License-Identifier: MIT
// zerdix book: phone books, and what is in them.

#include <memory>

#include "arguments/commands.h"
#include "books/entry_walk.h"
#include "books/kinds.h"
#include "books/known_entry.h"
#include "books/owned_commands.h"
#include "books/text_match.h"
#include "output/value_text.h"
#include "platform/encoding.h"
#include "session/user_command.h"
#include <zerdix/values.h>

namespace zerdix::app {

namespace {

json book_json(const o_tebu& book) {
    json object = {{"book", shown(book.tbookid)}};
    put_owned(object, book);
    object["external"] = is_external(book);
    json labels = json::array();
    for (const str30& label : book.t_labels) {
        if (!label.empty())
            labels.push_back(shown(label));
    }
    object["parameters"] = labels;
    return object;
}

void list(user_session& user) {
    list_all<book_kind>(user, book_json, {{"external", "External"}});
}

void info(user_session& user, owned_line& line) {
    const o_tebu book = known<book_kind>(user, line.id);
    json object = book_json(book);
    object["your_rights"] = rights_letters(rights_on(user, book));
    user.out().properties(object, columns_of<book_kind>({{"your_rights", "Your rights"},
                                                         {"server", "Server"},
                                                         {"external", "External"},
                                                         {"parameters", "Parameters"}}));
}

struct show_line {
    std::string typed, id, type, from, match;
    int most = 0;
};

bool matches(const o_tebul& entry, const std::string& part) {
    return holds(entry.teleid.view(), part) || holds(entry.comment.view(), part) ||
           holds(entry.phone.view(), part) || holds(entry.tsi.view(), part);
}

json found_entries(user_session& user, const show_line& line) {
    const std::string part = folded(platform::utf8_to_cp1252(line.match));
    const std::size_t most = line.most > 0 ? static_cast<std::size_t>(line.most) : SIZE_MAX;
    entry_walk walk(user, line.id, net_type_of(line.type),
                    line.from.empty() ? "" : id_text("the entry", line.from));
    json all = json::array();
    for (auto block = walk.next(); !block.empty() && all.size() < most; block = walk.next()) {
        for (const o_tebul& entry : block) {
            if (all.size() < most && matches(entry, part))
                all.push_back(entry_json(entry));
        }
    }
    return all;
}

void show(user_session& user, const show_line& line) {
    known<book_kind>(user, line.id); // an unknown book would look like an empty one
    user.out().rows(found_entries(user, line),
                    {{"entry", "Entry"},
                     {"phone", "Number"},
                     {"type", "Type"},
                     {"in_house", "In-house"},
                     {"station", "Station"},
                     {"comment", "Comment"}},
                    line.match.empty() ? "there are no entries" : "no entry matches");
}

void add_show(cli::command group) {
    auto line = std::make_shared<show_line>();
    cli::command command = add_user_command(
        group, "show", "Show the entries of a phone book",
        [line](user_session& user) { show(user, *line); },
        [line] { line->id = id_text("the phone book", line->typed); });
    command.add_argument("ID", line->typed, "Id of the phone book");
    add_net_type(command, line->type);
    command.add_option("--from", line->from, "Begin at this entry", "ENTRY");
    command.add_option("-m,--match", line->match,
                       "Only entries that hold this text, in any case of letters, in their id, "
                       "number, station or comment");
    command.add_option("-n,--most", line->most, "Stop after so many entries", "N")
        .in_range(1, 2147483647);
    command.footer("Example: zerdix book show common --match berlin");
}

} // namespace

void add_book_commands(cli::command app) {
    cli::command group = app.add_group("book", "Phone books: list, show, create, export ...");
    group.alias("books");
    add_user_command(group, "list", "List the phone books", list).alias("ls");
    add_show(group);
    auto line = std::make_shared<owned_line>();
    add_owned_command<book_kind>(group, "info", "Show what stands about a phone book", line, info);
    add_owned_commands<book_kind>(group);
    add_book_export(group);
    add_book_import(group);
    add_external_query(group);
}

} // namespace zerdix::app
