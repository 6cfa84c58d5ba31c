// SPDX-License-Identifier: MIT
// The users who are logged in. Login ids are numbers from 1 on; they live as long as the process.
#ifndef ZERDIX_ALPHAD_ANSWERS_SESSIONS_H
#define ZERDIX_ALPHAD_ANSWERS_SESSIONS_H

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zerdix::alphad {

class sessions {
  public:
    // The login id. The connection is the one that asked.
    std::int32_t open(std::string_view user, std::uint64_t connection) {
        logins_[++last_] = {std::string{user}, connection, true};
        return last_;
    }

    void close(std::string_view user, std::int32_t id) {
        if (user_of(id) == user)
            logins_.erase(id);
    }

    // Nothing for a login that never was or is over.
    std::optional<std::string> user_of(std::int32_t id) const {
        const auto found = logins_.find(id);
        return found == logins_.end() ? std::nullopt : std::optional{found->second.user};
    }

    // Whether the user has a login whose connection still stands.
    bool is_present(std::string_view user) const {
        return std::any_of(logins_.begin(), logins_.end(), [user](const auto& each) {
            return each.second.connected && each.second.user == user;
        });
    }

    // Its logins stay good, but nobody is present by them any more.
    void connection_gone(std::uint64_t connection) {
        for (auto& [id, each] : logins_)
            if (each.connection == connection)
                each.connected = false;
    }

  private:
    struct login {
        std::string user;
        std::uint64_t connection;
        bool connected;
    };

    std::map<std::int32_t, login> logins_;
    std::int32_t last_ = 0;
};

} // namespace zerdix::alphad

#endif
