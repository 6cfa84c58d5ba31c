// SPDX-License-Identifier: MIT
#include "alphad/store/user_groups.h"

#include "alphad/store/stored_record.h"

namespace zerdix::alphad {

void user_groups::put(std::string_view id, std::string_view comment) {
    execute(db_,
            "INSERT INTO user_groups (id, comment) VALUES (?, ?) "
            "ON CONFLICT (id) DO UPDATE SET comment = excluded.comment",
            whole_key(clean_key(id)), comment);
}

void user_groups::put_member(std::string_view group, const a_member_rec& member) {
    execute(db_,
            "INSERT OR REPLACE INTO user_members (groupid, userid, alphaid, comment) "
            "VALUES (?, ?, ?, ?)",
            whole_key(clean_key(group)), whole_key(clean_key(member.userid)),
            whole_key(clean_key(member.alphaid)), member.comment);
}

std::vector<a_group_rec> user_groups::list() const {
    statement row(db_, "SELECT id, comment FROM user_groups ORDER BY id");
    std::vector<a_group_rec> found;
    while (row.step()) {
        a_group_rec& group = found.emplace_back();
        group.groupid.assign_field(row.bytes(0));
        group.comment.assign(row.bytes(1));
    }
    return found;
}

std::vector<a_member_rec> user_groups::members(const str10& group) const {
    statement row(db_,
                  "SELECT userid, alphaid, comment FROM user_members WHERE groupid = ? "
                  "ORDER BY userid, alphaid",
                  whole_key(clean_key(group)));
    std::vector<a_member_rec> found;
    while (row.step()) {
        a_member_rec& member = found.emplace_back();
        member.userid.assign_field(row.bytes(0));
        member.alphaid.assign_field(row.bytes(1));
        member.comment.assign(row.bytes(2));
    }
    return found;
}

bool user_groups::has_member(const str10& group, const str35& server,
                             std::string_view userid) const {
    return statement(db_,
                     "SELECT 1 FROM user_members WHERE groupid = ? AND userid = ? AND alphaid = ?",
                     whole_key(clean_key(group)), whole_key(clean_key(userid)),
                     whole_key(clean_key(server)))
        .step();
}

} // namespace zerdix::alphad
