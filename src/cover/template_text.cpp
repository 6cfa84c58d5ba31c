// SPDX-License-Identifier: MIT
#include "cover/template_text.h"

#include <cstring>

namespace zerdix::cover {

namespace {

constexpr std::string_view begin_of_commands = "#DRUCK#";

bool begins_commands(const char* line) {
    return std::strncmp(line, begin_of_commands.data(), begin_of_commands.size()) == 0;
}

} // namespace

template_text::template_text(std::string_view bytes) : text_(bytes.substr(0, bytes.find('\0'))) {
    const char* line = next_line();
    while (line != nullptr && !begins_commands(line))
        line = next_line();
}

char* template_text::next() {
    char* line = next_line();
    // A second mark changes nothing for the lines behind it.
    while (line != nullptr && begins_commands(line))
        line = next_line();
    return line;
}

char* template_text::next_line() {
    const std::size_t end = text_.find('\n', at_);
    if (end == std::string::npos) {
        at_ = text_.size();
        return nullptr;
    }
    text_[end] = '\0';
    char* line = text_.data() + at_;
    at_ = end + 1;
    return line;
}

} // namespace zerdix::cover
