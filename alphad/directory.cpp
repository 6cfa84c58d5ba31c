#include "alphad/directory.h"

namespace zerdix::alphad {

void directory::put_user(std::string_view userid, std::string_view name) {
    execute(db_, "INSERT OR REPLACE INTO users (userid, name) VALUES (?, ?)", userid, name);
}

bool directory::knows(std::string_view userid) const {
    if (userid == print_user || userid == admin_user)
        return true;
    return statement(db_, "SELECT 1 FROM users WHERE userid = ?", userid).step();
}

std::string directory::config(std::string_view id) const {
    statement row(db_, "SELECT value FROM config WHERE id = ?", id);
    return row.step() ? row.text(0) : std::string{};
}

void directory::set_config(std::string_view id, std::string_view value) {
    execute(db_, "INSERT OR REPLACE INTO config (id, value) VALUES (?, ?)", id, value);
}

} // namespace zerdix::alphad
