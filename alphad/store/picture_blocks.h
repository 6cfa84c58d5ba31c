// SPDX-License-Identifier: MIT
// The bytes of pictures, in rows of a limited length: a block that comes is added without touching
// those before it, and a part is read without the rest.
#ifndef ZERDIX_ALPHAD_STORE_PICTURE_BLOCKS_H
#define ZERDIX_ALPHAD_STORE_PICTURE_BLOCKS_H

#include <string>
#include <string_view>

#include "alphad/store/database.h"

namespace zerdix::alphad {

// `start` is the length of what is there already.
void append_bytes(database& db, std::int64_t picture, std::int64_t start, std::string_view bytes);

// What there is of the bytes from `start` on, at most `length`.
std::string read_bytes(const database& db, std::int64_t picture, std::int64_t start,
                       std::int64_t length);

} // namespace zerdix::alphad

#endif
