// SPDX-License-Identifier: MIT
// The rights of users on phone books and recipient groups.
#ifndef ZERDIX_ALPHAD_STORE_BOOK_RIGHTS_H
#define ZERDIX_ALPHAD_STORE_BOOK_RIGHTS_H

#include "alphad/store/user_groups.h"
#include "alphad/store/users.h"

namespace zerdix::alphad {

class book_rights {
  public:
    // Both must outlive the object.
    book_rights(const alphad::users& users, const user_groups& groups)
        : users_(users), groups_(groups) {}

    // Of a book or a group: the union of what its owner, its group and everybody may do.
    template <class Record>
    bool may(const str10& user, book_right wanted, const Record& record) const {
        return (granted(user.view(), record.owner, record.group, record.perms) & wanted) != 0;
    }

    // Whether the user may put `wanted` in the place of `present`.
    template <class Record>
    bool may_replace(const str10& user, const Record& present, const Record& wanted) const {
        Record same_guard = wanted;
        same_guard.owner = present.owner;
        same_guard.group = present.group;
        same_guard.perms = present.perms;
        const bool guarded = to_stored(same_guard) != to_stored(wanted);
        const bool others = to_stored(same_guard) != to_stored(present);
        return (!guarded || may(user, right_hold, present)) &&
               ((guarded && !others) || may(user, right_change, present));
    }

  private:
    unsigned granted(std::string_view user, const str10& owner, const str10& group,
                     const opaque<3>& perms) const {
        if (user == administrator)
            return all_rights;
        unsigned bits = perms.bytes[2];
        if (owner == user)
            bits |= perms.bytes[0];
        if (!group.empty() && groups_.has_member(group, users_.server_name(), user))
            bits |= perms.bytes[1];
        return bits;
    }

    const alphad::users& users_;
    const user_groups& groups_;
};

} // namespace zerdix::alphad

#endif
