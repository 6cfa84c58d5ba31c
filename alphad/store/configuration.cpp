// SPDX-License-Identifier: MIT
#include "alphad/store/configuration.h"

#include <charconv>

#include <zerdix/records.h>

#include "alphad/store/stored_record.h"

namespace zerdix::alphad {

namespace {

constexpr std::string_view name_id = "ALPHAID";

// Goes through the stored records that name the server. `select` gives the record and its key of
// two parts, which `update` takes in this order. All are read before the first is changed.
template <class Record>
void rename_in(database& db, const char* select, const char* update, str35 Record::*server,
               const str35& from, const str35& to) {
    struct keyed {
        Record record;
        std::string first, second;
    };
    std::vector<keyed> found;
    for (statement row(db, select); row.step();) {
        Record record = from_stored<Record>(row.bytes(0));
        if ((record.*server).view() == from.view())
            found.push_back({record, row.text(1), row.text(2)});
    }
    for (keyed& each : found) {
        each.record.*server = to;
        execute(db, update, to_stored(each.record), each.first, each.second);
    }
}

void rename_server(database& db, const str35& from, const str35& to) {
    execute(db, "UPDATE users SET alphaid = ? WHERE alphaid = ?", whole_key(to), whole_key(from));
    execute(db, "UPDATE user_members SET alphaid = ? WHERE alphaid = ?", whole_key(to),
            whole_key(from));
    rename_in(db, "SELECT record, userid, alphaid FROM users",
              "UPDATE users SET record = ? WHERE userid = ? AND alphaid = ?",
              &o_user_rec::repl_alphaid, from, to);
    rename_in(db, "SELECT record, id, id FROM books",
              "UPDATE books SET record = ? WHERE id = ? AND id = ?", &o_tebu::alphaid, from, to);
    rename_in(db, "SELECT record, id, id FROM groups",
              "UPDATE groups SET record = ? WHERE id = ? AND id = ?", &o_tgroup::alphaid, from, to);
}

} // namespace

std::optional<std::int32_t> whole_number(std::string_view text) {
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool is_whole = error == std::errc{} && end == text.data() + text.size();
    return is_whole ? std::optional{value} : std::nullopt;
}

std::string configuration::value(std::string_view id) const {
    statement row(db_, "SELECT value FROM config WHERE id = ?", id);
    return row.step() ? row.text(0) : std::string{};
}

void configuration::set(std::string_view id, std::string_view value) {
    const str35 before = server_name();
    execute(db_, "INSERT OR REPLACE INTO config (id, value) VALUES (?, ?)", id, value);
    if (id == name_id && !(server_name() == before))
        rename_server(db_, before, server_name());
}

std::int32_t configuration::number(std::string_view id, std::int32_t otherwise) const {
    return whole_number(value(id)).value_or(otherwise);
}

str35 configuration::server_name() const {
    const std::string configured = value(name_id);
    str35 name{};
    name.assign(configured.empty() ? std::string_view{"alpha"} : configured);
    return name;
}

bool configuration::is_here(std::string_view server) const {
    return server.empty() || server == server_name().view();
}

} // namespace zerdix::alphad
