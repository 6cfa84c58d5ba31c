// Lists that are gathered from blocks: their elements are copies that the list owns.
#ifndef ZERDIX_RPC_GATHERED_LIST_H
#define ZERDIX_RPC_GATHERED_LIST_H

#include <memory>
#include <set>
#include <string>

#include <zerdix/held_result.h>
#include <zerdix/ptrlist.h>
#include <zerdix/zerdix.h>

namespace zerdix::rpc {

// A list of pointers into an answer, or of copies, which go with it. It is one or the other.
template <class Record>
class record_list : public PTRLIST {
  public:
    using PTRLIST::PTRLIST;

    ~record_list() {
        for (std::uint32_t i = 0; copies_ && i < getSize(); ++i)
            delete static_cast<Record*>((*this)[i]);
    }

    // Puts copies of a block's records, from index `skip` on, behind the list.
    void append_copies(const PTRLIST& block, std::uint32_t skip) {
        copies_ = true;
        const std::uint32_t have = getSize();
        setSize(have + block.getSize() - skip);
        for (std::uint32_t i = have; i < getSize(); ++i)
            setPtr(i, new Record(*static_cast<Record*>(block[i - have + skip])));
    }

  private:
    bool copies_ = false;
};

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
// replaces `list`. Null when a block failed: before the first one
// the old list stays, later the list holds what came so far.
//
// A block that brings nothing new, or that leads back to a key asked for before, ends the
// gathering, so that it ends whatever the server does.
template <class Record, class NextBlock, class Key>
PTRLIST* gather(std::unique_ptr<record_list<Record>>& list, NextBlock next_block, Key key) {
    PTRLIST* block = next_block(static_cast<const Record*>(nullptr));
    if (block == nullptr)
        return nullptr;
    list = std::make_unique<record_list<Record>>();
    std::set<std::string> asked;
    for (std::uint32_t skip = 0; block->getSize() > 0; skip = 1) {
        const bool leads_back = !asked.insert(key(last_of<Record>(*block))).second;
        const std::uint32_t fresh = leads_back ? 0 : block->getSize() - skip;
        if (fresh > 0)
            list->append_copies(*block, skip);
        // One that couldn't be had (-1) doesn't end the list: the next block tells what is wrong.
        const std::int64_t size = block_to_gather();
        if (fresh == 0 || fresh < size - 1)
            break;
        block = next_block(&last_of<Record>(*list));
        if (block == nullptr)
            return nullptr;
    }
    return list.get();
}

} // namespace zerdix::rpc

#endif
