#include "cover/composer.h"
#include "cover/state.h"

namespace zerdix::cover {

int FindReceiverEntry(const a_s_rec* record, o_tebul** entry) {
    std::optional<TELEBOOK>& coverBook = state().coverBook;
    if (!coverBook)
        coverBook.emplace();
    const std::string_view phone = record->phone.view();
    const std::size_t colon = phone.find(':');
    const bool has_book = colon != std::string_view::npos;
    str10 book;
    str10 id;
    book.assign(has_book ? phone.substr(0, colon) : "common");
    id.assign(has_book ? phone.substr(colon + 1) : phone);
    *entry = coverBook->getTBookEntry(book.bytes, id.bytes, 0);
    return *entry != nullptr ? 1 : 0;
}

} // namespace zerdix::cover
