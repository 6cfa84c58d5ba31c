// SPDX-License-Identifier: MIT
// Breaking a message's text into the text fields of physical lines.
#ifndef ZERDIX_TRACE_WRAP_H
#define ZERDIX_TRACE_WRAP_H

#include <cstddef>
#include <string_view>

namespace zerdix::trace {

// Takes the piece that fills one field of `width` characters off the front of `rest`, which must be
// longer. The piece ends at the last blank at or before the position `width`, and that blank is
// dropped; without one behind the first character it is `width` characters, and nothing is dropped.
std::string_view take_piece(std::string_view& rest, std::size_t width);

} // namespace zerdix::trace

#endif
