// What the list operations of the phone books have in common.
#ifndef ZERDIX_TELEBOOK_LIST_REQUEST_H
#define ZERDIX_TELEBOOK_LIST_REQUEST_H

#include "rpc/call.h"
#include "rpc/list.h"

namespace zerdix::telebook {

// An operation whose answer is a list: keeps the answer in one member and a list of pointers into
// it in another. Null on failure, with the old list in place but its elements gone.
template <class P>
PTRLIST* fetch_list(client*& copy, const typename P::argument& argument,
                    typename P::result*& answer, PTRLIST*& list, const void* holder) {
    if (rpc::fetch<P>(rpc::by_object{copy}, argument, answer, holder) == nullptr)
        return nullptr;
    delete list;
    list = rpc::list_of(*answer);
    return list;
}

} // namespace zerdix::telebook

#endif
