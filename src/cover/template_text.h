// SPDX-License-Identifier: MIT
// The command text of a cover template, line by line.
//
// Everything up to the first line that begins with "#DRUCK#" is skipped.
// The text ends at its first NUL, and what follows the last line feed isn't a line.
#ifndef ZERDIX_COVER_TEMPLATE_TEXT_H
#define ZERDIX_COVER_TEMPLATE_TEXT_H

#include <string>
#include <string_view>

namespace zerdix::cover {

class template_text {
  public:
    explicit template_text(std::string_view bytes);

    // The next line that may hold commands, without its line feed and closed by a NUL; null when
    // there are no more. The caller may write into it.
    char* next();

  private:
    char* next_line();

    std::string text_;
    std::size_t at_ = 0;
};

} // namespace zerdix::cover

#endif
