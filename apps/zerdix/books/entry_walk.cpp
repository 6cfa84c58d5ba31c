// SPDX-License-Identifier: MIT
#include "books/entry_walk.h"

#include "output/value_text.h"

namespace zerdix::app {

namespace {

constexpr std::int32_t smallest_block = 2; // the entry that was asked for, and a new one

std::int32_t block_size(user_session& user) {
    const call_probe watch;
    const std::int32_t size = ZERDIX::clsGetTelebookBlockSize();
    if (size == -1 || ZERDIX::clsGetClient() == nullptr)
        user.lost("asking for the size of a block", watch);
    return std::max(size, smallest_block);
}

} // namespace

entry_walk::entry_walk(user_session& user, std::string book, std::int16_t nettype,
                       std::string start)
    : user_(user), book_(std::move(book)), nettype_(nettype), start_(std::move(start)),
      block_size_(block_size(user)) {}

std::vector<o_tebul> entry_walk::next() {
    pages_.next([this](const o_tebul* last) {
        const std::string start = last != nullptr ? std::string(last->teleid.view()) : start_;
        return &user_.fetch("reading the phone book " + shown(book_), [&] {
            return user_.books().getTBookEntries(book_.c_str(), static_cast<nettypetype>(nettype_),
                                                 start.c_str(), block_size_);
        });
    });
    std::vector<o_tebul> entries;
    for (const o_tebul* entry : pages_.fresh())
        entries.push_back(*entry);
    return entries;
}

} // namespace zerdix::app
