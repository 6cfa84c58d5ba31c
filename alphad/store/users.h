// SPDX-License-Identifier: MIT
// The users that the server knows: who they are, their replacements, passwords and preferences.
//
// Users of other servers may stand in the list too; passwords and preferences have only those of
// this one.
#ifndef ZERDIX_ALPHAD_STORE_USERS_H
#define ZERDIX_ALPHAD_STORE_USERS_H

#include <algorithm>
#include <limits>
#include <optional>

#include <zerdix/values.h>

#include "alphad/store/configuration.h"
#include "alphad/store/stored_record.h"

namespace zerdix::alphad {

class users {
  public:
    // Both must outlive the object.
    users(database& db, const alphad::configuration& configuration)
        : db_(db), configuration_(configuration) {}

    // A new user of this server. Nothing happens when there is one already, or the id is empty.
    bool add(std::string_view userid, std::string_view comment);

    // New or changed. An empty alphaid becomes this server's.
    void put(const o_user_rec& record);

    // Whether there is such a user of this server. The server's own two users count as known.
    bool knows(std::string_view userid) const;

    // An empty server is this one.
    std::optional<o_user_rec> find(std::string_view userid, std::string_view server = {}) const;

    // In the order of userid, then alphaid, as unsigned bytes; the start is inclusive.
    class rows;
    rows list(const str10& start = {}, const str35& start_server = {},
              std::int32_t most = std::numeric_limits<std::int32_t>::max()) const;

    // Empty: the user has no password and can't log in.
    std::string password_hash(std::string_view userid) const;
    void set_password(std::string_view userid, std::string_view password);

    // Those of a user who has stored none are all zero.
    a_user_rec preferences(std::string_view userid) const;
    void set_preferences(const a_user_rec& record);

    str35 server_name() const { return configuration_.server_name(); }

    // Whether the replacement, if it were in force, would lead back to the user.
    bool closes_cycle(std::string_view userid, std::string_view repl_server,
                      std::string_view repl_userid) const;

  private:
    database& db_;
    const alphad::configuration& configuration_;
};

class users::rows {
  public:
    // False behind the last one.
    bool next(o_user_rec& record);

  private:
    friend class users;
    rows(const database& db, const str10& start, const str35& start_server, std::int32_t most);

    statement row_;
};

} // namespace zerdix::alphad

#endif
