// SPDX-License-Identifier: MIT
// Groups of users, which phone books and recipient groups give rights to.
#ifndef ZERDIX_ALPHAD_STORE_USER_GROUPS_H
#define ZERDIX_ALPHAD_STORE_USER_GROUPS_H

#include <vector>

#include "alphad/store/database.h"
#include "rpc/wire/session_records.h"

namespace zerdix::alphad {

class user_groups {
  public:
    explicit user_groups(database& db) : db_(db) {}

    void put(std::string_view id, std::string_view comment);
    void put_member(std::string_view group, const a_member_rec& member);

    // Both in the order of their keys.
    std::vector<a_group_rec> list() const;
    std::vector<a_member_rec> members(const str10& group) const;

    bool has_member(const str10& group, const str35& server, std::string_view userid) const;

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
