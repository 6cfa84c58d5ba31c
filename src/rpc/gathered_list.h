// Lists that are gathered from blocks: their elements are copies that the list's holder owns.
#ifndef ZERDIX_RPC_GATHERED_LIST_H
#define ZERDIX_RPC_GATHERED_LIST_H

#include <set>
#include <string>

#include <zerdix/ptrlist.h>
#include <zerdix/zerdix.h>

namespace zerdix::rpc {

// Deletes a list, and its elements first when they are copies.
template <class Record>
void delete_list(PTRLIST*& list, bool& copies) {
    for (std::uint32_t i = 0; list != nullptr && copies && i < list->getSize(); ++i)
        delete static_cast<Record*>((*list)[i]);
    delete list;
    list = nullptr;
    copies = false;
}

// Puts a list of pointers into an answer in the place of `list`; a null one leaves it alone.
template <class Record>
PTRLIST* replace_list(PTRLIST*& list, bool& copies, PTRLIST* fresh) {
    if (fresh == nullptr)
        return nullptr;
    delete_list<Record>(list, copies);
    list = fresh;
    return list;
}

// Puts copies of a block's records, from index `skip` on, behind the list.
template <class Record>
void append_copies(PTRLIST& list, PTRLIST& block, std::uint32_t skip) {
    const std::uint32_t have = list.getSize();
    list.setSize(have + block.getSize() - skip);
    for (std::uint32_t i = have; i < list.getSize(); ++i)
        list.setPtr(i, new Record(*static_cast<Record*>(block[i - have + skip])));
}

template <class Record>
Record& last_of(PTRLIST& list) {
    return *static_cast<Record*>(list[list.getSize() - 1]);
}

// How many records a block of a gathered list asks for. A block of one would hold nothing but the
// record that it is asked for by.
inline std::int32_t block_to_gather() {
    const std::int32_t size = ZERDIX::clsGetTelebookBlockSize();
    return size == 1 ? 2 : size;
}

// Gathers a whole list block by block. `next_block(last)` fetches the block that begins at the
// record `last`, which comes again as the first record of that block; null asks for the first
// block. Whoever traces does it there. `key(record)` is what a record is asked for by. The list
// replaces `list`, whose elements are then copies. Null when a block failed: before the first one
// the old list stays, later the list holds what came so far.
//
// A block that brings nothing new, or that leads back to a key asked for before, ends the
// gathering, so that it ends whatever the server does.
template <class Record, class NextBlock, class Key>
PTRLIST* gather(PTRLIST*& list, bool& copies, NextBlock next_block, Key key) {
    PTRLIST* block = next_block(static_cast<const Record*>(nullptr));
    if (block == nullptr)
        return nullptr;
    delete_list<Record>(list, copies);
    list = new PTRLIST;
    copies = true;
    std::set<std::string> asked;
    for (std::uint32_t skip = 0; block->getSize() > 0; skip = 1) {
        const bool leads_back = !asked.insert(key(last_of<Record>(*block))).second;
        const std::uint32_t fresh = leads_back ? 0 : block->getSize() - skip;
        if (fresh > 0)
            append_copies<Record>(*list, *block, skip);
        // One that couldn't be had (-1) doesn't end the list: the next block tells what is wrong.
        const std::int64_t size = block_to_gather();
        if (fresh == 0 || fresh < size - 1)
            break;
        block = next_block(&last_of<Record>(*list));
        if (block == nullptr)
            return nullptr;
    }
    return list;
}

} // namespace zerdix::rpc

#endif
