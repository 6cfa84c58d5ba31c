// SPDX-License-Identifier: MIT
// An entry of a phone book: looked up, and as a reader sees it.
#ifndef ZERDIX_APP_BOOKS_KNOWN_ENTRY_H
#define ZERDIX_APP_BOOKS_KNOWN_ENTRY_H

#include <cstdint>
#include <optional>
#include <string>

#include <zerdix/records.h>

#include "arguments/command.h"
#include "books/names.h"
#include "session/user_session.h"

namespace zerdix::app {

std::optional<o_tebul> find_entry(user_session& user, const book_entry& name);

// Throws failure when there is none, and says whether the book is.
o_tebul known_entry(user_session& user, const book_entry& name);

json entry_json(const o_tebul& entry);

const char* net_word(std::int16_t nettype); // "fax" or "telex"

// The option --type of commands that look at entries; its value is empty, "fax" or "telex".
void add_net_type(cli::command command, std::string& place);
std::int16_t net_type_of(const std::string& word); // 0 for both

} // namespace zerdix::app

#endif
