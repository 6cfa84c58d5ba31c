// SPDX-License-Identifier: MIT
#include <zerdix/book_entry.h>

#include "cover/composer.h"
#include "cover/state.h"

namespace zerdix::cover {

int FindReceiverEntry(const a_s_rec* record, o_tebul** entry) {
    std::optional<TELEBOOK>& coverBook = state().coverBook;
    if (!coverBook)
        coverBook.emplace();
    const std::string_view phone = record->phone.view();
    const book_entry named =
        parse_book_entry(phone).value_or(book_entry{"common", std::string{phone}});
    str10 book;
    str10 id;
    book.assign(named.book);
    id.assign(named.entry);
    *entry = coverBook->getTBookEntry(book.bytes, id.bytes, 0);
    return *entry != nullptr ? 1 : 0;
}

} // namespace zerdix::cover
