// SPDX-License-Identifier: MIT
#include "books/names.h"

#include <algorithm>

#include "output/failure.h"
#include "output/value_text.h"
#include "platform/encoding.h"

namespace zerdix::app {

namespace {

constexpr std::size_t id_width = 10;

void require_sound(const std::string& what, const std::string& typed) {
    if (typed.empty())
        throw failure(exit_usage, what + " has no id");
    const bool steers = std::any_of(typed.begin(), typed.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    });
    if (steers)
        throw failure(exit_usage, what + " can't have a control character in its id");
}

template <class Take>
book_entry split_entry(const std::string& typed, Take take) {
    const auto parts = parse_book_entry(typed);
    if (!parts || parts->book.empty() || parts->entry.empty())
        throw failure(exit_usage, "\"" + typed +
                                      "\" isn't a phone book entry: BOOK:ENTRY is "
                                      "expected");
    return {take("the phone book", parts->book), take("the entry", parts->entry)};
}

} // namespace

std::string id_text(const std::string& what, const std::string& typed) {
    require_sound(what, typed);
    return field_text(what + "'s id", typed, id_width);
}

std::string exact_id(const std::string& what, const std::string& typed) {
    require_sound(what, typed);
    std::string id = platform::utf8_to_cp1252(typed);
    if (id.size() > id_width || platform::cp1252_to_utf8(id) != typed)
        throw failure(exit_usage, what + " \"" + typed +
                                      "\" can't be there: an id has at most 10 characters, all of "
                                      "Windows-1252");
    return id;
}

book_entry entry_named(const std::string& typed) {
    return split_entry(typed, id_text);
}

book_entry exact_entry(const std::string& typed) {
    return split_entry(typed, exact_id);
}

std::string count_of_entries(std::size_t n) {
    return std::to_string(n) + (n == 1 ? " entry" : " entries");
}

} // namespace zerdix::app
