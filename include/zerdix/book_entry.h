// SPDX-License-Identifier: MIT
// A receiver that is a phone book entry: "BOOK:ENTRY", as receiver strings and the field `phone` of
// a_s_rec have it.
#ifndef ZERDIX_BOOK_ENTRY_H
#define ZERDIX_BOOK_ENTRY_H

#include <optional>
#include <string>
#include <string_view>

namespace zerdix {

struct book_entry {
    std::string book;  // a tbookid, at most 10 characters
    std::string entry; // a teleid, likewise

    std::string text() const { return book + ':' + entry; }

    friend bool operator==(const book_entry& a, const book_entry& b) {
        return a.book == b.book && a.entry == b.entry;
    }
};

// Nothing for a receiver that is a number: one without a colon. What stands in front of the first
// colon is the book; neither part is checked.
inline std::optional<book_entry> parse_book_entry(std::string_view receiver) {
    const std::size_t colon = receiver.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    return book_entry{std::string{receiver.substr(0, colon)},
                      std::string{receiver.substr(colon + 1)}};
}

} // namespace zerdix

#endif
