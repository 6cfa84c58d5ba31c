// SPDX-License-Identifier: MIT
#include "dialogs/entry_pager.h"

#include "rpc/gathered_list.h"

namespace zerdix::dialogs {

namespace {

constexpr std::int32_t unknown_size = -1; // the question for it failed

} // namespace

entry_pager::entry_pager(TELEBOOK& telebook)
    : telebook_(telebook), lBlockSize(rpc::block_to_gather()) {}

void entry_pager::start(const str10& book, nettypetype net) {
    book_ = book;
    net_ = net;
    fListComplete = false;
    startKey = {};
    pages_ = {};
}

// A server that begins a block with the entry that it was asked for by, and one that begins behind
// it, both give the book without a gap. A short block isn't the last one; one without a new entry
// is, also when the server leads back to what was there before.
std::optional<std::vector<o_tebul>> entry_pager::next() {
    std::vector<o_tebul> entries;
    if (fListComplete)
        return entries;
    const paging step = pages_.next([this](const o_tebul*) { return fetch(); });
    fListComplete = step != paging::goes_on;
    if (step == paging::failed)
        return std::nullopt;
    for (const o_tebul* entry : pages_.fresh())
        entries.push_back(*entry);
    if (!entries.empty())
        startKey = entries.back().teleid;
    return entries;
}

// Without a size a server would send an empty block, which looks like the end of the book. So the
// size is asked for again, and one that still can't be had counts as a block that failed.
PTRLIST* entry_pager::fetch() {
    if (lBlockSize == unknown_size)
        lBlockSize = rpc::block_to_gather();
    if (lBlockSize == unknown_size)
        return nullptr;
    return telebook_.getTBookEntries(book_.bytes, net_, startKey.bytes, lBlockSize);
}

} // namespace zerdix::dialogs
