#include "alphad/directory.h"

#include <charconv>

#include "alphad/stored_record.h"

namespace zerdix::alphad {

namespace {

constexpr std::string_view name_id = "ALPHAID";

void rename_server(database& db, const str35& from, const str35& to) {
    execute(db, "UPDATE users SET alphaid = ? WHERE alphaid = ?", whole_key(to), whole_key(from));
    execute(db, "UPDATE user_members SET alphaid = ? WHERE alphaid = ?", whole_key(to),
            whole_key(from));
}

} // namespace

std::string directory::config(std::string_view id) const {
    statement row(db_, "SELECT value FROM config WHERE id = ?", id);
    return row.step() ? row.text(0) : std::string{};
}

void directory::set_config(std::string_view id, std::string_view value) {
    const str35 before = server_name();
    execute(db_, "INSERT OR REPLACE INTO config (id, value) VALUES (?, ?)", id, value);
    if (id == name_id && !(server_name() == before))
        rename_server(db_, before, server_name());
}

std::int32_t directory::number(std::string_view id, std::int32_t otherwise) const {
    const std::string text = config(id);
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size() ? value : otherwise;
}

str35 directory::server_name() const {
    const std::string value = config(name_id);
    str35 name{};
    name.assign(value.empty() ? std::string_view{"alpha"} : value);
    return name;
}

bool directory::is_here(std::string_view server) const {
    return server.empty() || server == server_name().view();
}

} // namespace zerdix::alphad
