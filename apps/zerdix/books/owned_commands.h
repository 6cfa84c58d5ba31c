// SPDX-License-Identifier: MIT
// The commands that phone books and groups share: create, change, delete, rights.
#ifndef ZERDIX_APP_BOOKS_OWNED_COMMANDS_H
#define ZERDIX_APP_BOOKS_OWNED_COMMANDS_H

#include <memory>
#include <string>
#include <vector>

#include "arguments/several_names.h"
#include "books/kinds.h"
#include "books/names.h"
#include "books/owned.h"
#include "session/user_command.h"

namespace zerdix::app {

// What the commands below were given.
struct owned_line {
    std::string typed;
    std::string id; // Windows-1252
    std::vector<std::string> all;
    owned_options options;
};

template <class Kind>
std::string the() {
    return std::string("the ") + Kind::word;
}

// The columns that both kinds have, and more behind them.
template <class Kind>
std::vector<column> columns_of(const std::vector<column>& more) {
    std::vector<column> all{{Kind::key, Kind::heading},
                            {"comment", "Comment"},
                            {"owner", "Owner"},
                            {"user_group", "User group"},
                            {"rights", "Rights"}};
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

template <class Kind>
void list_all(user_session& user, json (*as_json)(const typename Kind::record&),
              const std::vector<column>& more) {
    const std::string word = Kind::word;
    const PTRLIST& found =
        user.fetch("listing the " + word + 's', [&] { return Kind::all(user.books()); });
    json all = json::array();
    for (const auto* record : records<typename Kind::record>(found))
        all.push_back(as_json(*record));
    user.out().rows(all, columns_of<Kind>(more), "there are no " + word + 's');
}

template <class Kind>
void put_record(user_session& user, const std::string& doing, typename Kind::record& record) {
    const std::string id(Kind::id(record).view());
    user.expect(
        doing + " the " + named<Kind>(id), [&] { return Kind::put(user.books(), record); },
        [&]() -> std::string {
            if (!find<Kind>(user, id))
                return "the server refused; it may be there and not for you to see";
            return why_refused<Kind>(user, id, TELEBOOK::clssetPModify(), "change it");
        });
}

// Who gives the rights away can't take them back, which is easily done by mistake.
template <class Kind, class Record>
void tell_what_was_given_away(user_session& user, const Record& record,
                              const owned_options& options) {
    const auto held = static_cast<unsigned char>(TELEBOOK::clssetPPerm());
    if ((options.owner || !options.rights.empty()) && (rights_on(user, record) & held) == 0)
        note("you can't change the rights on " + the<Kind>() + " any more; it belongs to " +
             shown(record.owner) + " (your rights: " + rights_letters(rights_on(user, record)) +
             ')');
}

template <class Kind>
void create(user_session& user, owned_line& line) {
    if (find<Kind>(user, line.id))
        throw failure(exit_refused, "there is a " + named<Kind>(line.id) + " already; zerdix " +
                                        Kind::key + " change changes it");
    typename Kind::record record{};
    Kind::id(record).assign(line.id);
    record.alphaid.assign(ZERDIX::clsGetAlphaServer());
    record.owner.assign(ZERDIX::clsGetUserId());
    record.perms = first_rights();
    apply(line.options, record);
    put_record<Kind>(user, "creating", record);
    tell_what_was_given_away<Kind>(user, record, line.options);
    user.out().done(named<Kind>(line.id) + " created", {{Kind::key, shown(line.id)}});
}

template <class Kind>
void change(user_session& user, owned_line& line) {
    auto record = known<Kind>(user, line.id);
    apply(line.options, record);
    put_record<Kind>(user, "changing", record);
    tell_what_was_given_away<Kind>(user, record, line.options);
    user.out().done(named<Kind>(line.id) + " changed", {{Kind::key, shown(line.id)}});
}

template <class Kind>
void remove_all(user_session& user, const owned_line& line) {
    for_each_name(user.out(), line.all, [&](const std::string& typed) -> named_act {
        const std::string id = exact_id(the<Kind>(), typed);
        user.expect(
            "deleting the " + named<Kind>(id),
            [&] { return Kind::remove(user.books(), id.c_str()); },
            [&] { return why_refused<Kind>(user, id, TELEBOOK::clssetPDelete(), "delete it"); });
        return {named<Kind>(id) + " deleted", {{Kind::key, shown(id)}}};
    });
}

template <class Kind>
void rights(user_session& user, owned_line& line) {
    auto record = known<Kind>(user, line.id);
    if (!line.options.rights.empty()) {
        apply(line.options, record);
        user.expect(
            "changing the rights on the " + named<Kind>(line.id),
            [&] { return Kind::put(user.books(), record); },
            [&] {
                return why_refused<Kind>(user, line.id, TELEBOOK::clssetPPerm(),
                                         "change its rights");
            });
        tell_what_was_given_away<Kind>(user, record, line.options);
        return user.out().done(
            "rights on the " + named<Kind>(line.id) + " are now " + rights_text(record.perms),
            {{Kind::key, shown(line.id)}, {"rights", rights_text(record.perms)}});
    }
    const auto letters = [&](int which) { return rights_letters(record.perms.bytes[which]); };
    user.out().properties({{Kind::key, shown(line.id)},
                           {"owner", shown(record.owner)},
                           {"owner_rights", letters(0)},
                           {"user_group", shown(record.group)},
                           {"group_rights", letters(1)},
                           {"all_rights", letters(2)},
                           {"your_rights", rights_letters(rights_on(user, record))}},
                          {{"owner", "Owner"},
                           {"owner_rights", "  rights"},
                           {"user_group", "User group"},
                           {"group_rights", "  rights"},
                           {"all_rights", "All others"},
                           {"your_rights", "You"}});
}

// Adds a command about one record, whose id is looked at first.
template <class Kind>
cli::command add_owned_command(cli::command parent, const char* name,
                               const std::string& description, std::shared_ptr<owned_line> line,
                               void (*work)(user_session&, owned_line&)) {
    cli::command command = add_user_command(
        parent, name, description.c_str(), [line, work](user_session& user) { work(user, *line); },
        [line, name] {
            line->id = id_text(the<Kind>(), line->typed);
            if (name == std::string("create") && line->id.find(':') != std::string::npos)
                throw failure(exit_usage, the<Kind>() + "'s id can't hold a colon");
            if (name == std::string("change") && !line->options.any())
                throw failure(exit_usage, "nothing is to be changed; --comment, --owner and "
                                          "--group say what");
            for (const std::string& letters : line->options.rights)
                rights_bits(letters);
        });
    command.add_argument("ID", line->typed, "Id of " + the<Kind>() + ", 10 characters");
    return command;
}

template <class Kind>
void add_owned_commands(cli::command parent) {
    const std::string word = Kind::word;
    const std::string program = std::string("zerdix ") + Kind::key;
    auto line = std::make_shared<owned_line>();
    cli::command command =
        add_owned_command<Kind>(parent, "create", "Create a " + word, line, create<Kind>);
    add_owned_options(command, line->options);
    command.footer("The owner is you, unless --owner says otherwise, and has all rights; the user "
                   "group\nhas read and use, all others have none.\n\nExample: " +
                   program + " create kunden --comment \"Customers in the north\"");

    line = std::make_shared<owned_line>();
    command = add_owned_command<Kind>(parent, "change", "Change what stands about a " + word, line,
                                      change<Kind>);
    add_owned_options(command, line->options);
    command.footer("What isn't named stays as it is.\n\nExample: " + program +
                   " change kunden --owner meier");

    line = std::make_shared<owned_line>();
    command = add_owned_command<Kind>(
        parent, "rights", "Show the rights on a " + word + ", or set them", line, rights<Kind>);
    add_rights_argument(command, line->options);
    command.footer("Rights are letters: r read, u use (send to it), a add, c change, d delete,\n"
                   "p hold the rights.\n\nExample: " +
                   program + " rights kunden ruacdp ru none");

    line = std::make_shared<owned_line>();
    command = add_user_command(parent, "delete", ("Delete " + word + "s").c_str(),
                               [line](user_session& user) { remove_all<Kind>(user, *line); });
    command.alias("rm");
    command.add_argument("ID", line->all, "Id of " + the<Kind>());
    command.footer("All of them go without a question, with what is in them.\n\nExample: " +
                   program + " delete kunden");
}

} // namespace zerdix::app

#endif
