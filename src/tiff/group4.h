// SPDX-License-Identifier: MIT
// Group 4 coding of fax pages (ITU-T T.6): each row as its difference from the one above.
#ifndef ZERDIX_TIFF_GROUP4_H
#define ZERDIX_TIFF_GROUP4_H

#include <cstdint>
#include <span>
#include <string>

namespace zerdix::tiff {

// The rows of a picture, whole bytes each and a set bit black, with the end-of-block code behind
// them; most significant bit first, filled up to a whole byte.
std::string group4_code(std::uint32_t width, std::span<const unsigned char> rows);

} // namespace zerdix::tiff

#endif
