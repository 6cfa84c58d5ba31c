// SPDX-License-Identifier: MIT
// Reads all entries of a phone book, block by block.
#ifndef ZERDIX_APP_BOOKS_ENTRY_WALK_H
#define ZERDIX_APP_BOOKS_ENTRY_WALK_H

#include <cstdint>
#include <string>
#include <vector>

#include <zerdix/pager.h>
#include <zerdix/records.h>

#include "session/user_session.h"

namespace zerdix::app {

struct id_of_entry {
    std::string operator()(const o_tebul& entry) const { return std::string(entry.teleid.view()); }
};

class entry_walk {
  public:
    // From the id `start` on, "" for the beginning; a net type of 0 takes both. Texts are
    // Windows-1252.
    entry_walk(user_session& user, std::string book, std::int16_t nettype, std::string start);

    // The entries of the next block, copies; none at the end. Throws failure.
    std::vector<o_tebul> next();

  private:
    user_session& user_;
    std::string book_;
    std::int16_t nettype_;
    std::string start_;
    std::int32_t block_size_;
    // A block may begin with the entry that was asked for, and each counts once.
    pager<o_tebul, leave_repeats_out<o_tebul, id_of_entry>> pages_;
};

} // namespace zerdix::app

#endif
