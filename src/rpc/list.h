// Lists out of answers: a PTRLIST whose elements point into the nodes of a chain.
#ifndef ZERDIX_RPC_LIST_H
#define ZERDIX_RPC_LIST_H

#include <algorithm>

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
template <class Answer>
PTRLIST* list_of(const Answer& answer) {
    std::uint32_t length = 0;
    const auto count = static_cast<std::uint32_t>(std::max(answer.count, std::int32_t{0}));
    for (auto* node = answer.first; node != nullptr && length < count; node = node->next)
        ++length;
    auto* list = new PTRLIST(length);
    auto* node = answer.first;
    for (std::uint32_t i = 0; i < length; ++i, node = node->next)
        list->setPtr(i, &record_of(*node));
    return list;
}

// An operation whose answer is a list: keeps the answer in one member and a list of pointers into
// it in another. Null on failure, with the old list in place but its elements gone.
template <class P, class Policy>
PTRLIST* fetch_list(const Policy& policy, const typename P::argument& argument,
                    typename P::result*& answer, PTRLIST*& list, const void* holder) {
    if (fetch<P>(policy, argument, answer, holder) == nullptr)
        return nullptr;
    delete list;
    list = list_of(*answer);
    return list;
}

} // namespace zerdix::rpc

#endif
