// Who may do what with a phone book or a recipient group.
#ifndef ZERDIX_ALPHAD_STORE_BOOK_RIGHTS_H
#define ZERDIX_ALPHAD_STORE_BOOK_RIGHTS_H

#include "alphad/store/user_groups.h"
#include "alphad/store/users.h"

namespace zerdix::alphad {

// The bits of each byte of `perms`.
enum class right : unsigned {
    read = 0x01,   // see the record and what is in it
    use = 0x02,    // send to entries
    add = 0x04,    // put new entries or members in
    change = 0x08, // change entries, and the record but for the fields that `hold` guards
    remove = 0x10, // take entries or members out, and the whole record away
    hold = 0x20,   // change owner, group and rights
};

class book_rights {
  public:
    // Both must outlive the object.
    book_rights(const alphad::users& users, const user_groups& groups)
        : users_(users), groups_(groups) {}

    // Of a book or a group: the union of what its owner, its group and everybody may do.
    template <class Record>
    bool may(const str10& user, right wanted, const Record& record) const {
        return (granted(user.view(), record.owner, record.group, record.perms) &
                static_cast<unsigned>(wanted)) != 0;
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
        return (!guarded || may(user, right::hold, present)) &&
               ((guarded && !others) || may(user, right::change, present));
    }

  private:
    unsigned granted(std::string_view user, const str10& owner, const str10& group,
                     const opaque<3>& perms) const {
        if (user == admin_user)
            return 0x3F;
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
