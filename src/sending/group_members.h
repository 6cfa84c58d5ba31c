// SPDX-License-Identifier: MIT
// The members of a recipient group, each with its phone book entry.
#ifndef ZERDIX_SENDING_GROUP_MEMBERS_H
#define ZERDIX_SENDING_GROUP_MEMBERS_H

#include <functional>
#include <string>

#include <zerdix/telebook.h>

namespace zerdix::sending {

enum class group_end {
    read,
    unknown,    // the server has no such group
    no_group,   // the group couldn't be read
    no_members, // its members couldn't be read
};

// Told of each member in order. `entry` is null when its look-up failed, and has an empty tbookid
// when the phone book doesn't hold it; it is good until `take` returns.
using member_taker = std::function<void(const o_tgroupl& member, const o_tebul* entry)>;

// One remote call for the group, one for each block of members, and one for each member.
group_end read_group(TELEBOOK& books, const std::string& id, const member_taker& take);

// BOOK:ENTRY.
std::string receiver_string(const str10& book, const str10& entry);

// Whether the entry doesn't exist, or couldn't be read.
bool is_missing(const o_tebul* entry);

} // namespace zerdix::sending

#endif
