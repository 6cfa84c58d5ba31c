// Search texts: "*" stands for any characters, "?" for one, and the rest is a regular expression of
// the GNU kind in which "+" is a plus sign.
#ifndef ZERDIX_DIALOGS_FIND_TEXT_H
#define ZERDIX_DIALOGS_FIND_TEXT_H

#include <cstdint>
#include <memory>
#include <string_view>

namespace zerdix::dialogs {

// Makes "+" an ordinary character and "\+" and "\?" operators, for all search texts from now on.
void set_search_syntax();

// A search text made ready once, for many texts.
class search_pattern {
  public:
    explicit search_pattern(std::string_view pattern);
    ~search_pattern();
    search_pattern(const search_pattern&) = delete;
    search_pattern& operator=(const search_pattern&) = delete;

    // One that isn't valid matches nothing.
    bool is_valid() const;
    // Not negative when it matches somewhere in the text, else -1.
    std::int32_t match(std::string_view text);

  private:
    struct compiled;
    std::unique_ptr<compiled> compiled_;
};

// Not negative when `pattern` matches somewhere in `text`, -1 for no match, -2 when one is null.
std::int32_t findInText(const char* text, const char* pattern);

} // namespace zerdix::dialogs

#endif
