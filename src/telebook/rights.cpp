// SPDX-License-Identifier: MIT
// The rights of the session's user on phone books and recipient groups.

#include <cstring>

#include <zerdix/telebook.h>
#include <zerdix/zerdix.h>

#include "rpc/fields.h"

using zerdix::rpc::or_empty;

namespace {

enum right : unsigned char {
    right_read = 1,
    right_execute = 2,
    right_add = 4,
    right_modify = 8,
    right_delete = 16,
    right_perm = 32,
    all_rights = 63,
};

// The bytes of a record's `perms`.
enum { of_owner, of_group, of_everybody };

} // namespace

char TELEBOOK::clssetPRead() {
    return right_read;
}
char TELEBOOK::clssetPExecute() {
    return right_execute;
}
char TELEBOOK::clssetPAdd() {
    return right_add;
}
char TELEBOOK::clssetPModify() {
    return right_modify;
}
char TELEBOOK::clssetPDelete() {
    return right_delete;
}
char TELEBOOK::clssetPPerm() {
    return right_perm;
}

// An owner whose field has no NUL can be compared all the same: the user's id is shorter than it.
char TELEBOOK::getPermissions(const unsigned char* perms, const char* owner, const char* group) {
    int rights = perms[of_everybody];
    if (std::strcmp(ZERDIX::clsGetUserId(), or_empty(owner)) == 0)
        rights |= perms[of_owner];
    if (ZERDIX::clsSearchUserInGroup(group) == 0)
        rights |= perms[of_group];
    return static_cast<char>(rights & all_rights);
}
