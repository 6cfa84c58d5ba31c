// SPDX-License-Identifier: MIT
// Results on the heap, as the release filters of the protocol expect them.
#ifndef ZERDIX_ALPHAD_ANSWERS_HEAP_RESULT_H
#define ZERDIX_ALPHAD_ANSWERS_HEAP_RESULT_H

#include <cstring>
#include <new>
#include <string_view>

#include "rpc/wire/filter.h"

namespace zerdix::alphad {

inline bytes heap_bytes(std::string_view from) {
    if (from.empty())
        return {0, nullptr};
    auto* data = static_cast<unsigned char*>(std::malloc(from.size()));
    if (data == nullptr)
        throw std::bad_alloc{};
    std::memcpy(data, from.data(), from.size());
    return {static_cast<std::uint32_t>(from.size()), data};
}

// A chain in the making.
template <wire::chain_node Node>
class chain {
  public:
    chain() = default;
    ~chain() { wire::free_chain(first_); }
    chain(const chain&) = delete;
    chain& operator=(const chain&) = delete;

    Node& append() {
        Node* node = wire::new_node<Node>();
        if (node == nullptr)
            throw std::bad_alloc{};
        *end_ = node;
        end_ = &node->next;
        ++count_;
        return *node;
    }

    std::int32_t count() const { return count_; }

    // The caller owns the chain from here on.
    Node* take() {
        Node* first = first_;
        first_ = nullptr;
        end_ = &first_;
        return first;
    }

  private:
    Node* first_ = nullptr;
    Node** end_ = &first_;
    std::int32_t count_ = 0;
};

// A list result: its chain's nodes take the records in `field`.
template <class Result, class Node, class Record>
Result list_of(const std::vector<Record>& records, Record Node::*field) {
    chain<Node> nodes;
    for (const Record& record : records)
        nodes.append().*field = record;
    return {nodes.count(), nodes.take()};
}

// The same of rows that are read one by one, as many as there are.
template <class Result, class Node, class Record, class Rows>
Result list_of_rows(Rows&& rows, Record Node::*field) {
    chain<Node> nodes;
    for (Record record; rows.next(record);)
        nodes.append().*field = record;
    return {nodes.count(), nodes.take()};
}

} // namespace zerdix::alphad

#endif
