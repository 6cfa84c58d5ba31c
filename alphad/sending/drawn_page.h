// SPDX-License-Identifier: MIT
// A page for demo and test documents, drawn here: a frame, a heading over a rule, lines of text.
#ifndef ZERDIX_ALPHAD_SENDING_DRAWN_PAGE_H
#define ZERDIX_ALPHAD_SENDING_DRAWN_PAGE_H

#include <string>
#include <string_view>
#include <vector>

namespace zerdix::alphad {

// As it is stored, compressed. Letters are shown as capitals; what is no letter of ASCII, digit or
// one of ".,:/-" stays blank. A heading has room for 30 characters, a line for 48.
std::string drawn_page(std::string_view heading, const std::vector<std::string>& lines);

} // namespace zerdix::alphad

#endif
