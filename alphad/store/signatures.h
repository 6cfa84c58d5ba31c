// SPDX-License-Identifier: MIT
// The users' signatures, a picture each; opaque bytes here.
//
// A new one comes in blocks. The first block's offset is 0; a block shorter than the block length
// ends it, and only then it takes the place of the old one.
#ifndef ZERDIX_ALPHAD_STORE_SIGNATURES_H
#define ZERDIX_ALPHAD_STORE_SIGNATURES_H

#include "alphad/store/database.h"

namespace zerdix::alphad {

constexpr std::size_t signature_block = 16384;

class signatures {
  public:
    explicit signatures(database& db) : db_(db) {}

    // Empty when there is none.
    std::string whole(std::string_view userid) const;

    // False when it is too long.
    bool put(std::string_view userid, std::string_view signature);

    // False when the block doesn't continue what came before, or the whole gets too long.
    bool put_block(std::string_view userid, std::int32_t offset, std::string_view block);

  private:
    std::string coming(std::string_view userid) const;

    database& db_;
};

} // namespace zerdix::alphad

#endif
