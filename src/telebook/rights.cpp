// SPDX-License-Identifier: MIT
// The rights of the session's user on phone books and recipient groups.

#include <cstring>

#include <zerdix/telebook.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "rpc/fields.h"

using zerdix::rpc::or_empty;

namespace {

// The bytes of a record's `perms`.
enum { of_owner, of_group, of_everybody };

} // namespace

char TELEBOOK::clssetPRead() {
    return zerdix::right_read;
}
char TELEBOOK::clssetPExecute() {
    return zerdix::right_use;
}
char TELEBOOK::clssetPAdd() {
    return zerdix::right_add;
}
char TELEBOOK::clssetPModify() {
    return zerdix::right_change;
}
char TELEBOOK::clssetPDelete() {
    return zerdix::right_remove;
}
char TELEBOOK::clssetPPerm() {
    return zerdix::right_hold;
}

// An owner whose field has no NUL can be compared all the same: the user's id is shorter than it.
char TELEBOOK::getPermissions(const unsigned char* perms, const char* owner, const char* group) {
    int rights = perms[of_everybody];
    if (std::strcmp(ZERDIX::clsGetUserId(), or_empty(owner)) == 0)
        rights |= perms[of_owner];
    if (ZERDIX::clsSearchUserInGroup(group) == 0)
        rights |= perms[of_group];
    return static_cast<char>(rights & zerdix::all_rights);
}
