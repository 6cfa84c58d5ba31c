// SPDX-License-Identifier: MIT
// Adding the members of a recipient group as receivers.
#ifndef ZERDIX_SENDFAX_RECEIVER_GROUP_H
#define ZERDIX_SENDFAX_RECEIVER_GROUP_H

#include <zerdix/telebook.h>

namespace zerdix::sendfax {

// Adds all members of the group that fit the job's net type as BOOK:ENTRY; one remote call a
// member. A group or an entry that doesn't exist is traced and left out. False when the group or
// its members couldn't be read.
bool add_receiver_group(TELEBOOK& books, const char* groupid);

} // namespace zerdix::sendfax

#endif
