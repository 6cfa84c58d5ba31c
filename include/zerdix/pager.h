// SPDX-License-Identifier: MIT
// Going through a list block by block, as the operations with a block size give it.
//
// A block is asked for by the last record that came. A server begins it with that record or behind
// it; one that misbehaves repeats other records, or goes back. What a repeated key means is the
// policy's business, so that each list ends whatever the server does. One thread; header only.
#ifndef ZERDIX_PAGER_H
#define ZERDIX_PAGER_H

#include <cstdint>
#include <optional>
#include <set>
#include <type_traits>
#include <utility>
#include <vector>

#include <zerdix/ptrlist.h>

namespace zerdix {

enum class paging {
    goes_on,  // the block brought new records
    ended,    // it brought none
    failed,   // it couldn't be had
    repeated, // it repeats what the policy doesn't let pass
};

template <class Record>
const Record& record_at(const PTRLIST& block, std::uint32_t i) {
    return *static_cast<const Record*>(block[i]);
}

// `repeats(block, last, fresh)` is the policy: it puts the block's new records into `fresh`, in
// their order. `last` is the last record that came before, null for the first block. False ends the
// list as `repeated`.
template <class Record, class Repeats>
class pager {
  public:
    pager() = default;
    explicit pager(Repeats repeats) : repeats_(std::move(repeats)) {}

    // Takes the next block from `fetch(last)`, a PTRLIST* that is null on failure. `last` is the
    // last record that came, null for the first block. Not to be called again after the end.
    template <class Fetch>
    paging next(Fetch&& fetch) {
        const Record* const last = last_ ? &*last_ : nullptr;
        fresh_.clear();
        block_size_ = 0;
        const PTRLIST* const block = fetch(last);
        if (block == nullptr)
            return paging::failed;
        block_size_ = block->getSize();
        if (!repeats_(*block, last, fresh_))
            return paging::repeated;
        if (fresh_.empty())
            return paging::ended;
        last_ = *fresh_.back();
        return paging::goes_on;
    }

    // The new records of the last block, good as long as the block is.
    const std::vector<const Record*>& fresh() const { return fresh_; }

    // How many records the last block had, the repeated ones too.
    std::uint32_t block_size() const { return block_size_; }

  private:
    Repeats repeats_;
    std::optional<Record> last_;
    std::vector<const Record*> fresh_;
    std::uint32_t block_size_ = 0;
};

// A policy: a record whose key came before is left out. `Key` is a function that gives the key of a
// record.
template <class Record, class Key>
class leave_repeats_out {
  public:
    leave_repeats_out() = default;
    explicit leave_repeats_out(Key key) : key_(std::move(key)) {}

    bool operator()(const PTRLIST& block, const Record*, std::vector<const Record*>& fresh) {
        for (std::uint32_t i = 0; i < block.getSize(); ++i) {
            const Record& record = record_at<Record>(block, i);
            if (seen_.insert(key_(record)).second)
                fresh.push_back(&record);
        }
        return true;
    }

  private:
    Key key_;
    std::set<std::decay_t<std::invoke_result_t<Key, const Record&>>> seen_;
};

// A policy: each block begins with the record that it was asked for by, which is left out. A block
// that ends with a key by which one was asked for before brings nothing.
template <class Record, class Key>
class end_at_repeat {
  public:
    end_at_repeat() = default;
    explicit end_at_repeat(Key key) : key_(std::move(key)) {}

    bool operator()(const PTRLIST& block, const Record* last, std::vector<const Record*>& fresh) {
        const std::uint32_t size = block.getSize();
        if (size == 0 || !asked_.insert(key_(record_at<Record>(block, size - 1))).second)
            return true;
        for (std::uint32_t i = last != nullptr ? 1 : 0; i < size; ++i)
            fresh.push_back(&record_at<Record>(block, i));
        return true;
    }

  private:
    Key key_;
    std::set<std::decay_t<std::invoke_result_t<Key, const Record&>>> asked_;
};

} // namespace zerdix

#endif
