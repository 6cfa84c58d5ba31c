// SPDX-License-Identifier: MIT
#include "alphad/store/users.h"

#include <set>

#include "alphad/store/password.h"

namespace zerdix::alphad {

namespace {

o_user_rec read_row(const statement& row) {
    auto record = from_stored<o_user_rec>(row.bytes(0));
    record.alphaid.assign_field(row.bytes(1));
    return record;
}

str35 server_key(std::string_view server, const configuration& values) {
    if (server.empty())
        return values.server_name();
    str35 key{};
    key.assign(server);
    return key;
}

} // namespace

bool users::add(std::string_view userid, std::string_view comment) {
    o_user_rec record{};
    record.userid.assign(userid);
    record.comment.assign(comment);
    if (record.userid.empty() || find(record.userid.view()))
        return false;
    put(record);
    return true;
}

void users::put(const o_user_rec& record) {
    const str10 id = clean_key(record.userid);
    const str35 server = server_key(record.alphaid.view(), configuration_);
    execute(db_, "INSERT OR REPLACE INTO users (userid, alphaid, record) VALUES (?, ?, ?)",
            whole_key(id), whole_key(server), to_stored(record));
}

bool users::knows(std::string_view userid) const {
    return userid == print_user || userid == administrator || find(userid);
}

std::optional<o_user_rec> users::find(std::string_view userid, std::string_view server) const {
    const str10 id = clean_key(userid);
    const str35 home = server_key(server, configuration_);
    statement row(db_, "SELECT record, alphaid FROM users WHERE userid = ? AND alphaid = ?",
                  whole_key(id), whole_key(home));
    return row.step() ? std::optional{read_row(row)} : std::nullopt;
}

users::rows users::list(const str10& start, const str35& start_server, std::int32_t most) const {
    return {db_, start, start_server, most};
}

users::rows::rows(const database& db, const str10& start, const str35& start_server,
                  std::int32_t most)
    : row_(db,
           "SELECT record, alphaid FROM users WHERE (userid, alphaid) >= (?, ?) "
           "ORDER BY userid, alphaid LIMIT ?",
           whole_key(start), whole_key(start_server), std::max(most, 0)) {}

bool users::rows::next(o_user_rec& record) {
    if (!row_.step())
        return false;
    record = read_row(row_);
    return true;
}

std::string users::password_hash(std::string_view userid) const {
    statement row(db_, "SELECT hash FROM passwords WHERE userid = ?", userid);
    return row.step() ? row.text(0) : std::string{};
}

void users::set_password(std::string_view userid, std::string_view password) {
    execute(db_, "INSERT OR REPLACE INTO passwords (userid, hash) VALUES (?, ?)", userid,
            hash_password(password));
}

a_user_rec users::preferences(std::string_view userid) const {
    record_rows<a_user_rec> stored(db_, "SELECT record FROM preferences WHERE userid = ?", userid);
    a_user_rec none{};
    none.userid.assign(userid);
    return stored.first().value_or(none);
}

void users::set_preferences(const a_user_rec& record) {
    execute(db_, "INSERT OR REPLACE INTO preferences (userid, record) VALUES (?, ?)", record.userid,
            to_stored(record));
}

// Only replacements that are in force are followed. What users of other servers do can't be seen
// from here, so the walk ends well at them.
bool users::closes_cycle(std::string_view userid, std::string_view repl_server,
                         std::string_view repl_userid) const {
    std::set<std::string> met{std::string{userid}};
    std::string next{repl_userid};
    std::string server{repl_server};
    while (!next.empty() && configuration_.is_here(server)) {
        if (!met.insert(next).second)
            return true;
        const auto record = find(next);
        if (!record || !record->repl_active)
            return false;
        next = record->repl_userid.view();
        server = record->repl_alphaid.view();
    }
    return false;
}

} // namespace zerdix::alphad
