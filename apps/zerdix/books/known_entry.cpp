// SPDX-License-Identifier: MIT
#include "books/known_entry.h"

#include "books/kinds.h"

namespace zerdix::app {

std::optional<o_tebul> find_entry(user_session& user, const book_entry& name) {
    const o_tebul& entry = user.fetch("looking up " + shown(name.text()), [&] {
        return user.books().getTBookEntry(name.book.c_str(), name.entry.c_str(), 1);
    });
    if (entry.tbookid.empty())
        return std::nullopt;
    return entry;
}

o_tebul known_entry(user_session& user, const book_entry& name) {
    if (const auto entry = find_entry(user, name))
        return *entry;
    known<book_kind>(user, name.book); // says so when it is the book that isn't there
    throw failure(exit_no_receiver,
                  "the phone book " + shown(name.book) + " has no entry " + shown(name.entry));
}

const char* net_word(std::int16_t nettype) {
    return nettype == NETTYPE_TELEX ? "telex" : "fax";
}

void add_net_type(cli::command command, std::string& place) {
    command.add_option("--type", place, "Only entries for fax, or for telex", "fax|telex")
        .one_of({"fax", "telex"});
}

std::int16_t net_type_of(const std::string& word) {
    if (word.empty())
        return 0;
    return word == "telex" ? NETTYPE_TELEX : NETTYPE_FAX;
}

json entry_json(const o_tebul& entry) {
    return {{"book", shown(entry.tbookid)},   {"entry", shown(entry.teleid)},
            {"phone", shown(entry.phone)},    {"type", net_word(entry.nettype)},
            {"in_house", bool{entry.intern}}, {"station", shown(entry.tsi)},
            {"comment", shown(entry.comment)}};
}

} // namespace zerdix::app
