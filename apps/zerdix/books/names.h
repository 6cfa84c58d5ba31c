// SPDX-License-Identifier: MIT
// Ids of phone books, entries and groups, from UTF-8 as typed to Windows-1252.
#ifndef ZERDIX_APP_BOOKS_NAMES_H
#define ZERDIX_APP_BOOKS_NAMES_H

#include <cstddef>
#include <string>

#include <zerdix/book_entry.h>

namespace zerdix::app {

// An id of at most 10 characters. One that is too long is cut, with a note that begins with `what`:
// "the phone book". Throws failure for one that no record can have.
std::string id_text(const std::string& what, const std::string& typed);

// The same for what is to be deleted: an id that would have to be cut or changed is refused.
std::string exact_id(const std::string& what, const std::string& typed);

// BOOK:ENTRY in Windows-1252. Throws failure for any other form.
book_entry entry_named(const std::string& typed);
book_entry exact_entry(const std::string& typed);

// "1 entry", "2 entries".
std::string count_of_entries(std::size_t n);

} // namespace zerdix::app

#endif
