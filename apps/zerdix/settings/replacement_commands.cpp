// SPDX-License-Identifier: MIT
// zerdix replacement: who stands in for the user.

#include <memory>
#include <string>

#include "arguments/commands.h"
#include "output/value_text.h"
#include "session/user_command.h"

namespace zerdix::app {

namespace {

constexpr std::int32_t closes_a_cycle = 6;

o_user_rec own_record(user_session& user) {
    return user.fetch("looking up your record", [&] { return user.session().getOUserRecord(); });
}

struct target {
    std::string user, server; // Windows-1252; no server: that of the session

    std::string shown() const {
        return app::shown(user) + (server.empty() ? "" : '@' + app::shown(server));
    }
};

target target_named(const std::string& typed) {
    const auto at = typed.find('@');
    target found{field_text("the user's id", typed.substr(0, at), 10), ""};
    if (at != std::string::npos)
        found.server = field_text("the server's name", typed.substr(at + 1), 35);
    if (found.user.empty() || (at != std::string::npos && found.server.empty()))
        throw failure(exit_usage, '"' + typed + "\": USER or USER@SERVER is expected");
    return found;
}

bool is_known(user_session& user, const target& to) {
    const PTRLIST& block = user.fetch("looking up the user " + to.shown(), [&] {
        return user.session().getUserListB(to.user.c_str(), to.server.c_str(), 1);
    });
    const auto found = records<o_user_rec>(block);
    return !found.empty() && found[0]->userid == to.user && found[0]->alphaid == to.server;
}

failure refused_replacement(user_session& user, const target& to) {
    if (to.server == ZERDIX::clsGetAlphaServer() && !is_known(user, to))
        return {exit_no_receiver, "there is no user " + shown(to.user)};
    if (to.user == ZERDIX::clsGetUserId())
        return {exit_refused, "nobody can stand in for themselves"};
    return {exit_refused,
            "the server refused " + to.shown() + ": the replacements would go round in a circle"};
}

void put(user_session& user, const target& to, bool in_force) {
    std::int32_t result = 0;
    user.expect("setting the replacement", [&] {
        result =
            user.session().setReplacement(to.user.c_str(), to.server.c_str(), in_force ? 1 : 0);
        return result == closes_a_cycle ? 0 : result;
    });
    if (result == closes_a_cycle)
        throw refused_replacement(user, to);
}

json replacement_json(const o_user_rec& record) {
    return {{"user", shown(record.userid)},
            {"replacement", shown(record.repl_userid)},
            {"server", shown(record.repl_alphaid)},
            {"in_force", bool{record.repl_active}}};
}

void show(user_session& user) {
    const o_user_rec record = own_record(user);
    if (record.repl_userid.empty() && !user.out().is_json())
        return user.out().done("nobody is named to stand in for " + user.user());
    user.out().properties(
        replacement_json(record),
        {{"replacement", "Replacement"}, {"server", "Server"}, {"in_force", "In force"}});
}

void set(user_session& user, target to) {
    if (to.server.empty())
        to.server = ZERDIX::clsGetAlphaServer();
    put(user, to, true);
    user.out().done(to.shown() + " stands in for " + user.user(),
                    replacement_json(own_record(user)));
}

void end(user_session& user) {
    const o_user_rec record = own_record(user);
    if (!record.repl_active)
        return user.out().done("no replacement was in force for " + user.user(),
                               replacement_json(record));
    put(user, {std::string(record.repl_userid.view()), std::string(record.repl_alphaid.view())},
        false);
    user.out().done("nobody stands in for " + user.user() + " now",
                    replacement_json(own_record(user)));
}

} // namespace

void add_replacement_commands(cli::command app) {
    cli::command group = app.add_group("replacement", "Who stands in for you");
    add_user_command(group, "show", "Show who stands in for you", show);
    auto typed = std::make_shared<std::string>();
    auto to = std::make_shared<target>();
    cli::command command = add_user_command(
        group, "set", "Name who stands in for you, from now on",
        [to](user_session& user) { set(user, *to); }, [typed, to] { *to = target_named(*typed); });
    command.add_argument("USER[@SERVER]", *typed, "A user, of this server unless another is named");
    command.footer("Example: zerdix replacement set meier");
    add_user_command(group, "off", "End the replacement; who it was stays noted", end);
}

} // namespace zerdix::app
