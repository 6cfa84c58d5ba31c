// SPDX-License-Identifier: MIT
// zerdix user: users, and the groups that they are in.

#include <memory>
#include <optional>

#include "arguments/commands.h"
#include "output/value_text.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

json user_json(const o_user_rec& user) {
    return {{"user", shown(user.userid)},
            {"server", shown(user.alphaid)},
            {"comment", shown(user.comment)},
            {"replacement", shown(user.repl_userid)},
            {"replacement_server", shown(user.repl_alphaid)},
            {"replacement_in_force", bool{user.repl_active}},
            {"barcode", shown(user.barcode)}};
}

void list(user_session& user) {
    const PTRLIST& users =
        user.fetch("listing the users", [&] { return user.session().getUserList(); });
    json all = json::array();
    for (const auto* one : records<o_user_rec>(users))
        all.push_back(user_json(*one));
    user.out().rows(all, {{"user", "User"}, {"server", "Server"}, {"comment", "Name"}},
                    "there are no users");
}

// Users of one id may live on several servers. The list begins at a key, which ends before any
// server's name: so the first user of the block is the one, or nobody is.
o_user_rec look_up(user_session& user, const std::string& typed) {
    const std::string id = field_text("the user's id", typed, 10);
    const PTRLIST& block = user.fetch("looking up the user " + shown(id), [&] {
        return user.session().getUserListB(id.c_str(), "", 1);
    });
    const auto found = records<o_user_rec>(block);
    if (found.empty() || !(found[0]->userid == id))
        throw failure(exit_no_receiver, "there is no user " + shown(id));
    return *found[0];
}

void show(user_session& user, const std::string& typed) {
    const o_user_rec record =
        typed.empty()
            ? user.fetch("looking up your record", [&] { return user.session().getOUserRecord(); })
            : look_up(user, typed);
    user.out().properties(user_json(record), {{"user", "User"},
                                              {"server", "Server"},
                                              {"comment", "Name"},
                                              {"replacement", "Replacement"},
                                              {"replacement_server", "  on"},
                                              {"replacement_in_force", "  in force"},
                                              {"barcode", "Barcode"}});
}

bool is_member(user_session& user, const a_group_rec& group) {
    const std::string id(group.groupid.view());
    const call_probe watch;
    const std::int32_t result = ZERDIX::clsSearchUserInGroup(id.c_str());
    if (result != call_succeeded && result != call_refused)
        user.lost("looking into the group " + shown(id), watch);
    return result == 0;
}

void groups(user_session& user, bool with_member) {
    const PTRLIST& list =
        user.fetch("listing the user groups", [&] { return user.session().getUserGroups(); });
    json all = json::array();
    for (const auto* group : records<a_group_rec>(list)) {
        json object = {{"group", shown(group->groupid)}, {"comment", shown(group->comment)}};
        if (with_member)
            object["member"] = is_member(user, *group);
        all.push_back(object);
    }
    std::vector<column> columns = {{"group", "Group"}, {"comment", "Comment"}};
    if (with_member)
        columns.push_back({"member", "Member"});
    user.out().rows(all, columns, "there are no user groups");
}

} // namespace

void add_user_commands(cli::command app) {
    cli::command group = app.add_group("user", "Users and user groups: list, show, groups");
    group.alias("users");
    add_user_command(group, "list", "List the users", list).alias("ls");

    auto typed = std::make_shared<std::string>();
    cli::command command = add_user_command(group, "show", "Show what stands about a user",
                                            [typed](user_session& user) { show(user, *typed); });
    command.add_argument("ID", *typed, "Id of the user (default: you)").optional();
    command.footer("Example: zerdix user show meier");

    auto with_member = std::make_shared<bool>(false);
    command = add_user_command(group, "groups", "List the user groups",
                               [with_member](user_session& user) { groups(user, *with_member); });
    command.add_flag("-m,--member", *with_member, "Tell for each whether you are in it");
    command.footer("The rights on phone books and groups name user groups.");
}

} // namespace zerdix::app
