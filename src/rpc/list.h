// SPDX-License-Identifier: MIT
// Lists out of answers: a PTRLIST whose elements point into the nodes of a chain.
#ifndef ZERDIX_RPC_LIST_H
#define ZERDIX_RPC_LIST_H

#include <algorithm>
#include <memory>

#include <zerdix/ptrlist.h>

#include "rpc/call.h"

namespace zerdix::rpc {

// The record that a node carries, whichever side of it the pointer stands on.
template <wire::chain_node N>
auto& record_of(N& node) {
    return boost::pfr::get < wire::pointer_first<N> ? 1 : 0 > (node);
}

// A list of the records of an answer's chain, in its order. A chain shorter than the answer's count
// ends the list; a longer one is cut at the count.
template <class List = PTRLIST, class Answer>
std::unique_ptr<List> list_of(const Answer& answer) {
    std::uint32_t length = 0;
    const auto count = static_cast<std::uint32_t>(std::max(answer.count, std::int32_t{0}));
    for (auto* node = answer.first; node != nullptr && length < count; node = node->next)
        ++length;
    auto list = std::make_unique<List>(length);
    auto* node = answer.first;
    for (std::uint32_t i = 0; i < length; ++i, node = node->next)
        list->setPtr(i, &record_of(*node));
    return list;
}

// An operation whose answer is a list: keeps the answer, and a list of pointers into it. Null on
// failure, with the old list in place; the elements of one that points into the answer are gone.
template <class P, class Policy, class List>
List* fetch_list(const Policy& policy, const typename P::argument& argument,
                 held_result<typename P::result>& answer, std::unique_ptr<List>& list) {
    if (fetch<P>(policy, argument, answer) == nullptr)
        return nullptr;
    list = list_of<List>(*answer);
    return list.get();
}

} // namespace zerdix::rpc

#endif
