// The two procedures that load the list of a pool, and the release of what either has answered.
#ifndef ZERDIX_JOURNAL_POOL_LISTS_H
#define ZERDIX_JOURNAL_POOL_LISTS_H

#include "rpc/call.h"

namespace zerdix::journal {

struct outgoing {
    using whole = rpc::proc::a_get_slist_1;
    using block = rpc::proc::a_get_slistb_1;
};
struct incoming {
    using whole = rpc::proc::a_get_elist_1;
    using block = rpc::proc::a_get_elistb_1;
};
struct desk {
    using whole = rpc::proc::a_get_plist_1;
    using block = rpc::proc::a_get_plistb_1;
};

// Both procedures' answers are kept in the same member; its address tells whose record it is.
template <class Pool>
void release_list(typename Pool::whole::result*& answer, const void* holder) {
    if (answer == &wire::result_slot<typename Pool::block>::record)
        rpc::release<typename Pool::block>(answer, holder);
    else
        rpc::release<typename Pool::whole>(answer, holder);
}

} // namespace zerdix::journal

#endif
