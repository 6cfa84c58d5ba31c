// SPDX-License-Identifier: MIT
// zerdix group: recipient groups and their members.

#include <memory>

#include "arguments/commands.h"
#include "books/kinds.h"
#include "books/known_entry.h"
#include "books/owned_commands.h"

namespace zerdix::app {

namespace {

json group_json(const o_tgroup& group) {
    json object = {{"group", shown(group.groupid)}};
    put_owned(object, group);
    return object;
}

void list(user_session& user) {
    list_all<group_kind>(user, group_json, {});
}

std::vector<book_entry> members_of(user_session& user, const std::string& group) {
    const PTRLIST& members = user.fetch("reading the group " + shown(group), [&] {
        return user.books().getTGroupEntries(group.c_str(), 1);
    });
    std::vector<book_entry> names;
    for (const auto* member : records<o_tgroupl>(members))
        names.push_back({std::string(member->tbookid.view()), std::string(member->teleid.view())});
    return names;
}

// A member is only a reference: what it stands for may be gone, or not for this user to see.
json member_json(user_session& user, const book_entry& name) {
    if (const auto entry = find_entry(user, name)) {
        json object = entry_json(*entry);
        object["known"] = true;
        return object;
    }
    return {{"book", shown(name.book)},
            {"entry", shown(name.entry)},
            {"comment", "(no such entry)"},
            {"known", false}};
}

void show(user_session& user, owned_line& line) {
    known<group_kind>(user, line.id); // an unknown group would look like an empty one
    json all = json::array();
    for (const book_entry& name : members_of(user, line.id))
        all.push_back(member_json(user, name));
    user.out().rows(all,
                    {{"book", "Book"},
                     {"entry", "Entry"},
                     {"phone", "Number"},
                     {"type", "Type"},
                     {"comment", "Comment"}},
                    "the group " + shown(line.id) + " has no members");
}

void info(user_session& user, owned_line& line) {
    const o_tgroup group = known<group_kind>(user, line.id);
    json object = group_json(group);
    object["your_rights"] = rights_letters(rights_on(user, group));
    object["members"] = members_of(user, line.id).size();
    user.out().properties(object, columns_of<group_kind>({{"your_rights", "Your rights"},
                                                          {"server", "Server"},
                                                          {"members", "Members"}}));
}

json member_named(const std::string& group, const book_entry& name) {
    return {{"group", shown(group)}, {"book", shown(name.book)}, {"entry", shown(name.entry)}};
}

void add_members(user_session& user, owned_line& line) {
    known<group_kind>(user, line.id);
    for_each_name(user.out(), line.all, [&](const std::string& typed) -> named_act {
        const book_entry name = exact_entry(typed);
        known_entry(user, name);
        o_tgroupl member{};
        member.groupid.assign(line.id);
        member.tbookid.assign(name.book);
        member.teleid.assign(name.entry);
        user.expect(
            "adding " + shown(name.text()), [&] { return user.books().putTGroupEntry(&member); },
            [&] {
                return why_refused<group_kind>(user, line.id, TELEBOOK::clssetPAdd(),
                                               "add members");
            });
        return {shown(name.text()) + " added to " + shown(line.id), member_named(line.id, name)};
    });
}

void remove_members(user_session& user, owned_line& line) {
    for_each_name(user.out(), line.all, [&](const std::string& typed) -> named_act {
        const book_entry name = exact_entry(typed);
        user.expect(
            "removing " + shown(name.text()) + " from " + shown(line.id),
            [&] {
                return user.books().delTGroupEntry(line.id.c_str(), name.book.c_str(),
                                                   name.entry.c_str());
            },
            [&] {
                const std::string why = why_refused<group_kind>(
                    user, line.id, TELEBOOK::clssetPDelete(), "remove members");
                return why == "the server refused" ? "it isn't a member" : why;
            });
        return {shown(name.text()) + " removed from " + shown(line.id),
                member_named(line.id, name)};
    });
}

void add_member_command(cli::command group, const char* name, const std::string& description,
                        const std::string& example, void (*work)(user_session&, owned_line&)) {
    auto line = std::make_shared<owned_line>();
    cli::command command = add_owned_command<group_kind>(group, name, description, line, work);
    command.add_argument("BOOK:ENTRY", line->all, "Phone book entries");
    command.footer("Example: " + example);
}

} // namespace

void add_group_commands(cli::command app) {
    cli::command group =
        app.add_group("group", "Recipient groups: list, show, create, add members ...");
    group.alias("groups");
    add_user_command(group, "list", "List the groups", list).alias("ls");
    add_owned_command<group_kind>(group, "show", "Show the members of a group",
                                  std::make_shared<owned_line>(), show);
    add_owned_command<group_kind>(group, "info", "Show what stands about a group",
                                  std::make_shared<owned_line>(), info);
    add_owned_commands<group_kind>(group);
    add_member_command(group, "add", "Add phone book entries to a group",
                       "zerdix group add kunden common:adler private:kunde1", add_members);
    add_member_command(group, "remove", "Remove phone book entries from a group",
                       "zerdix group remove kunden common:adler", remove_members);
}

} // namespace zerdix::app
