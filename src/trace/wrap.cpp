// SPDX-License-Identifier: MIT
#include "trace/wrap.h"

namespace zerdix::trace {

std::string_view take_piece(std::string_view& rest, std::size_t width) {
    const std::size_t blank = rest.rfind(' ', width);
    const bool hard = blank == std::string_view::npos || blank == 0;
    const std::string_view piece = rest.substr(0, hard ? width : blank);
    rest.remove_prefix(hard ? width : blank + 1);
    return piece;
}

} // namespace zerdix::trace
