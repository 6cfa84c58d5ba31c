// SPDX-License-Identifier: MIT
// zerdix entry: the entries of phone books, one by one.

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "arguments/commands.h"
#include "arguments/several_names.h"
#include "books/kinds.h"
#include "books/known_entry.h"
#include "output/value_text.h"
#include "platform/encoding.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

struct entry_line {
    std::string typed;
    book_entry name;
    std::vector<std::string> all;
    std::optional<std::string> phone, comment, station;
    std::optional<std::int16_t> nettype;
    std::optional<bool> in_house;
    bool replace = false;

    bool any() const { return phone || comment || station || nettype || in_house; }
};

// A number isn't cut: what is left of it would be somebody else's.
void check_number(const entry_line& line) {
    if (line.phone && platform::utf8_to_cp1252(*line.phone).size() > 30)
        throw failure(exit_usage, "--phone: a number has at most 30 characters");
}

void apply(const entry_line& line, o_tebul& entry) {
    if (line.phone)
        entry.phone.assign(field_text("the number", *line.phone, 30));
    if (line.comment)
        entry.comment.assign(field_text("the comment", *line.comment, 30));
    if (line.station)
        entry.tsi.assign(field_text("the station identification", *line.station, 20));
    if (line.nettype)
        entry.nettype = *line.nettype;
    if (line.in_house)
        entry.intern = *line.in_house;
}

void put(user_session& user, const std::string& doing, const o_tebul& entry, const book_entry& name,
         char right, const char* verb) {
    user.expect(
        doing + ' ' + shown(name.text()), [&] { return user.books().putTBookEntry(&entry); },
        [&] { return why_refused<book_kind>(user, name.book, right, verb); });
}

void show(user_session& user, const entry_line& line) {
    user.out().properties(entry_json(known_entry(user, line.name)), {{"book", "Book"},
                                                                     {"entry", "Entry"},
                                                                     {"phone", "Number"},
                                                                     {"type", "Type"},
                                                                     {"in_house", "In-house"},
                                                                     {"station", "Station"},
                                                                     {"comment", "Comment"}});
}

void add(user_session& user, const entry_line& line) {
    const bool there = find_entry(user, line.name).has_value();
    if (there && !line.replace)
        throw failure(exit_refused, shown(line.name.text()) +
                                        " is there already; zerdix entry change "
                                        "changes it, --replace puts this one in "
                                        "its place");
    o_tebul entry{};
    entry.tbookid.assign(line.name.book);
    entry.teleid.assign(line.name.entry);
    entry.nettype = NETTYPE_FAX;
    apply(line, entry);
    put(user, there ? "replacing" : "adding", entry, line.name,
        there ? TELEBOOK::clssetPModify() : TELEBOOK::clssetPAdd(),
        there ? "change entries" : "add entries");
    user.out().done(shown(line.name.text()) + (there ? " replaced" : " added"), entry_json(entry));
}

void change(user_session& user, const entry_line& line) {
    o_tebul entry = known_entry(user, line.name);
    apply(line, entry);
    put(user, "changing", entry, line.name, TELEBOOK::clssetPModify(), "change entries");
    user.out().done(shown(line.name.text()) + " changed", entry_json(entry));
}

void remove(user_session& user, const entry_line& line) {
    for_each_name(user.out(), line.all, [&](const std::string& typed) -> named_act {
        const book_entry name = exact_entry(typed);
        user.expect(
            "removing " + shown(name.text()),
            [&] { return user.books().delTBookEntry(name.book.c_str(), name.entry.c_str()); },
            [&] {
                known_entry(user, name);
                return why_refused<book_kind>(user, name.book, TELEBOOK::clssetPDelete(),
                                              "remove entries");
            });
        return {shown(name.text()) + " removed",
                {{"book", shown(name.book)}, {"entry", shown(name.entry)}}};
    });
}

cli::option add_phone(cli::command command, entry_line& line) {
    return command.add_option("-p,--phone", line.phone, "The fax or telex number, 30 characters",
                              "NUMBER");
}

void add_other_fields(cli::command command, entry_line& line) {
    command.add_option("-c,--comment", line.comment, "A name or a note, 30 characters");
    command.add_option("--tsi,--station", line.station,
                       "The station identification of the receiver, 20 characters");
    const auto flag = [&](const char* name, auto& place, auto value, const char* description) {
        return command.add_flag(
            name, [&place, value] { place = value; }, description);
    };
    const cli::option telex =
        flag("--telex", line.nettype, std::int16_t{NETTYPE_TELEX}, "It is a telex number");
    flag("--fax", line.nettype, std::int16_t{NETTYPE_FAX}, "It is a fax number").excludes(telex);
    const cli::option in_house =
        flag("--in-house", line.in_house, true, "It is a number in the house");
    flag("--outside", line.in_house, false, "It is a number outside").excludes(in_house);
}

cli::command add_entry_command(cli::command group, const char* name, const char* description,
                               std::shared_ptr<entry_line> line,
                               void (*work)(user_session&, const entry_line&)) {
    cli::command command = add_user_command(
        group, name, description, [line, work](user_session& user) { work(user, *line); },
        [line] {
            check_number(*line);
            line->name = entry_named(line->typed);
        });
    command.add_argument("BOOK:ENTRY", line->typed, "The phone book and the entry's id in it");
    return command;
}

void add_adding(cli::command group) {
    auto line = std::make_shared<entry_line>();
    cli::command command =
        add_entry_command(group, "add", "Add an entry to a phone book", line, add);
    add_phone(command, *line).required();
    add_other_fields(command, *line);
    command.add_flag("--replace", line->replace, "Take the place of an entry that is there");
    command.footer("Example: zerdix entry add common:adler --phone \"+49 30 123456\" "
                   "--comment \"Adler, Berlin\"");
}

void add_changing(cli::command group) {
    auto line = std::make_shared<entry_line>();
    cli::command command = add_user_command(
        group, "change", "Change an entry of a phone book",
        [line](user_session& user) { change(user, *line); },
        [line] {
            if (!line->any())
                throw failure(exit_usage, "nothing is to be changed; see --help for the options");
            check_number(*line);
            line->name = entry_named(line->typed);
        });
    command.add_argument("BOOK:ENTRY", line->typed, "The phone book and the entry's id in it");
    add_phone(command, *line);
    add_other_fields(command, *line);
    command.footer("What isn't named stays as it is; an empty text clears a field.\n\n"
                   "Example: zerdix entry change common:adler --phone \"+49 30 654321\"");
}

void add_removing(cli::command group) {
    auto line = std::make_shared<entry_line>();
    cli::command command = add_user_command(group, "remove", "Remove entries from phone books",
                                            [line](user_session& user) { remove(user, *line); });
    command.alias("rm").alias("delete");
    command.add_argument("BOOK:ENTRY", line->all, "The entries, which go without a question");
    command.footer("Example: zerdix entry remove common:adler private:kunde1");
}

} // namespace

void add_entry_commands(cli::command app) {
    cli::command group =
        app.add_group("entry", "Entries of phone books: show, add, change, remove");
    group.alias("entries");
    auto line = std::make_shared<entry_line>();
    add_entry_command(group, "show", "Show an entry of a phone book", line, show);
    add_adding(group);
    add_changing(group);
    add_removing(group);
}

} // namespace zerdix::app
