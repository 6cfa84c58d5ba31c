// SPDX-License-Identifier: MIT
// Search texts: "*" stands for any characters, "?" for one, and the rest is a regular expression of
// the GNU kind in which "+" is a plus sign. Texts are bytes, whatever the process's locale is.
#ifndef ZERDIX_DIALOGS_SEARCH_PATTERN_H
#define ZERDIX_DIALOGS_SEARCH_PATTERN_H

#include <cstdint>
#include <memory>
#include <string_view>

namespace zerdix::dialogs {

// Tells the user that a search text can't be used.
constexpr std::int32_t text_bad_search = 40003;

// Makes "+" an ordinary character and "\+" and "\?" operators, for all search texts from now on.
void set_search_syntax();

// A search text made ready once, for many texts.
class search_pattern {
  public:
    explicit search_pattern(std::string_view pattern);
    ~search_pattern();
    search_pattern(const search_pattern&) = delete;
    search_pattern& operator=(const search_pattern&) = delete;

    // One that isn't valid matches nothing: it isn't a regular expression, or it refers back to one
    // of its groups, which may take hours to match. So is one that has taken seconds by now.
    bool is_valid() const;

    // The length of the longest match that begins with the text's first character (whatever stands
    // in front of what is looked for belongs to the match), -1 for none.
    std::int32_t match(std::string_view text);

  private:
    class matcher;
    class wildcards;
    class regular_expression;

    std::unique_ptr<matcher> matcher_;
};

// The same for one text; -2 when an argument is null.
std::int32_t findInText(const char* text, const char* pattern);

} // namespace zerdix::dialogs

#endif
