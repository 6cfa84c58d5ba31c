// SPDX-License-Identifier: MIT
#include "dialogs/entry_pager.h"

#include "rpc/gathered_list.h"

namespace zerdix::dialogs {

namespace {

constexpr std::int32_t unknown_size = -1; // the question for it failed

const o_tebul& entry_of(PTRLIST& block, std::uint32_t index) {
    return *static_cast<const o_tebul*>(block[index]);
}

} // namespace

entry_pager::entry_pager(TELEBOOK& telebook)
    : telebook_(telebook), lBlockSize(rpc::block_to_gather()) {}

void entry_pager::start(const str10& book, nettypetype net) {
    book_ = book;
    net_ = net;
    fListComplete = false;
    startKey = {};
    seenKeys.clear();
}

// A server that begins a block with the entry that it was asked for by, and one that begins behind
// it, both give the book without a gap. A short block isn't the last one.
std::optional<std::vector<o_tebul>> entry_pager::next() {
    if (fListComplete)
        return std::vector<o_tebul>{};
    PTRLIST* block = fetch();
    fListComplete = block == nullptr;
    if (block == nullptr)
        return std::nullopt;
    return new_entries(*block);
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

// The book is complete when nothing new comes, also when the server leads back to a block that was
// there before.
std::vector<o_tebul> entry_pager::new_entries(PTRLIST& block) {
    const std::uint32_t size = block.getSize();
    const std::uint32_t first = size > 0 && entry_of(block, 0).teleid == startKey ? 1 : 0;
    if (first >= size || !seenKeys.emplace(entry_of(block, size - 1).teleid.view()).second) {
        fListComplete = true;
        return {};
    }
    startKey = entry_of(block, size - 1).teleid;
    std::vector<o_tebul> entries;
    for (std::uint32_t i = first; i < size; ++i)
        entries.push_back(entry_of(block, i));
    return entries;
}

} // namespace zerdix::dialogs
