// SPDX-License-Identifier: MIT
// Lists that are gathered from blocks: their elements are copies that the list owns.
#ifndef ZERDIX_RPC_GATHERED_LIST_H
#define ZERDIX_RPC_GATHERED_LIST_H

#include <memory>
#include <vector>

#include <zerdix/held_result.h>
#include <zerdix/pager.h>
#include <zerdix/ptrlist.h>
#include <zerdix/zerdix.h>

namespace zerdix::rpc {

// A list of pointers into an answer, or of copies that it owns.
template <class Record>
class record_list : public PTRLIST {
  public:
    using PTRLIST::PTRLIST;

    ~record_list() {
        for (std::uint32_t i = 0; copies_ && i < getSize(); ++i)
            delete static_cast<Record*>((*this)[i]);
    }

    // Puts copies of records behind the list.
    void append_copies(const std::vector<const Record*>& records) {
        copies_ = true;
        std::uint32_t next = getSize();
        setSize(next + static_cast<std::uint32_t>(records.size()));
        for (const Record* record : records)
            setPtr(next++, new Record(*record));
    }

  private:
    bool copies_ = false;
};

// How many records a block of a gathered list asks for. A block of one would hold only the
// record that it is asked for by.
inline std::int32_t block_to_gather() {
    const std::int32_t size = ZERDIX::clsGetTelebookBlockSize();
    return size == 1 ? 2 : size;
}

// Gathers a whole list block by block. `next_block(last)` fetches the block that begins at the
// record `last`, which comes again as the first record of that block; null asks for the first
// block. `key(record)` is what a record is asked for by. The new list replaces `list`. Null when a
// block failed: when it was the first one the old list stays, else the list holds what came so far.
//
// A block that brings nothing new, or that leads back to a key asked for before, ends the
// gathering, so that it ends whatever the server does.
template <class Record, class NextBlock, class Key>
PTRLIST* gather(std::unique_ptr<record_list<Record>>& list, NextBlock next_block, Key key) {
    pager<Record, end_at_repeat<Record, Key>> pages{end_at_repeat<Record, Key>{key}};
    paging step = pages.next(next_block);
    if (step == paging::failed)
        return nullptr;
    list = std::make_unique<record_list<Record>>();
    while (pages.block_size() > 0) {
        list->append_copies(pages.fresh());
        // One that couldn't be had (-1) doesn't end the list: the next block tells what is wrong.
        const std::int64_t size = block_to_gather();
        if (step == paging::ended || static_cast<std::int64_t>(pages.fresh().size()) < size - 1)
            break;
        step = pages.next(next_block);
        if (step == paging::failed)
            return nullptr;
    }
    return list.get();
}

} // namespace zerdix::rpc

#endif
