// SPDX-License-Identifier: MIT
#include "alphad/answers/answers.h"
#include "alphad/answers/heap_result.h"

namespace zerdix::alphad {

a_user_rec answers::answer(proc::a_get_user_1, const str10& user) {
    return store_.users.knows(user.view()) ? store_.users.preferences(user.view()) : a_user_rec{};
}

boolean answers::answer(proc::a_put_user_1, const a_user_rec& in) {
    if (!store_.users.knows(in.userid.view()))
        return yes(false);
    store_.users.set_preferences(in);
    return yes(true);
}

o_user_rec answers::answer(proc::o_get_user_1, const o_get_user_i& in) {
    return store_.users.find(in.userid.view(), in.alphaid.view()).value_or(o_user_rec{});
}

// Users change their comment and their replacement; the rest of the record is the server's.
boolean answers::answer(proc::o_put_user_1, const o_user_rec& in) {
    auto record = store_.users.find(in.userid.view());
    if (!record || !store_.configuration.is_here(in.alphaid.view()))
        return yes(false);
    if (in.repl_active &&
        !can_stand_in(in.repl_alphaid.view(), in.repl_userid.view(), in.userid.view()))
        return yes(false);
    record->comment = in.comment;
    record->repl_alphaid = in.repl_alphaid;
    record->repl_userid = in.repl_userid;
    record->repl_active = in.repl_active;
    store_.users.put(*record);
    return yes(true);
}

// This server doesn't know the users of others, and accepts any of them. An empty name stands for
// no replacement, which is accepted, too.
bool answers::can_stand_in(std::string_view server, std::string_view userid,
                           std::string_view user) const {
    const bool unknown =
        !userid.empty() && store_.configuration.is_here(server) && !store_.users.find(userid);
    return !unknown && !store_.users.closes_cycle(user, server, userid);
}

// The answer has no room for a reason, so an unknown user is refused in the same way as a cycle.
boolean answers::answer(proc::a_check_cycle_1, const a_check_cycle_i& in) {
    return yes(store_.users.find(in.userid.view()) &&
               can_stand_in(in.repl_alphaid.view(), in.repl_userid.view(), in.userid.view()));
}

a_get_users_o answers::answer(proc::a_get_users_1, const wire::none&) {
    return list_of_rows<a_get_users_o>(store_.users.list(), &o_user_node::user);
}

a_get_users_o answers::answer(proc::a_get_usersb_1, const a_get_usersb_i& in) {
    return list_of_rows<a_get_users_o>(store_.users.list(in.userid, in.alphaid, in.number),
                                       &o_user_node::user);
}

a_get_groups_o answers::answer(proc::a_get_groups_1, const wire::none&) {
    return list_of<a_get_groups_o>(store_.user_groups.list(), &a_group_node::group);
}

a_get_members_o answers::answer(proc::a_get_members_1, const str10& group) {
    return list_of<a_get_members_o>(store_.user_groups.members(group), &a_member_node::member);
}

} // namespace zerdix::alphad
