// SPDX-License-Identifier: MIT
#include "books/text_match.h"

#include <algorithm>

namespace zerdix::app {

namespace {

bool between(unsigned char c, int first, int last) {
    return c >= first && c <= last;
}

char lower(char letter) {
    const auto c = static_cast<unsigned char>(letter);
    if (between(c, 'A', 'Z') || (between(c, 0xC0, 0xDE) && c != 0xD7))
        return static_cast<char>(c + 0x20);
    if (c == 0x8A || c == 0x8C || c == 0x8E) // S and Z with caron, OE
        return static_cast<char>(c + 0x10);
    return c == 0x9F ? '\xff' : letter; // Y with diaeresis
}

} // namespace

std::string folded(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

bool holds(std::string_view text, const std::string& part) {
    return folded(text).find(part) != std::string::npos;
}

} // namespace zerdix::app
