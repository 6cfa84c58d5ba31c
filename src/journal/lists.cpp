// The lists of the three pools, whole or by blocks.

#include <zerdix/journal.h>
#include <zerdix/zerdix.h>

#include "journal/pool_lists.h"
#include "rpc/fields.h"
#include "rpc/list.h"

using namespace zerdix;
using journal::desk;
using journal::incoming;
using journal::outgoing;
using rpc::by_object;
using rpc::by_patient_object;
using rpc::user_id;
namespace proc = rpc::proc;

namespace {

// Loads a pool by one of its two procedures. The old list goes with the answer behind it: after a
// call that failed an empty one stands in its place.
template <class Pool, class P>
std::int32_t load(client*& copy, const typename P::argument& request, typename P::result*& answer,
                  PTRLIST*& list, const void* holder) {
    const by_patient_object caller{copy};
    if (caller.handle() == nullptr)
        return rpc::no_client;
    journal::release_list<Pool>(answer, holder);
    rpc::fetch<P>(caller, request, answer, holder);
    delete list;
    list = answer != nullptr ? rpc::list_of(*answer) : new PTRLIST;
    return answer != nullptr ? rpc::success : rpc::call_failed;
}

bool logged_on() {
    return ZERDIX::clsCheckLogin() < rpc::refused;
}

} // namespace

PTRLIST* JOURNAL::getEDocPtrList() {
    return pEDocList;
}
PTRLIST* JOURNAL::getPDocPtrList() {
    return pPDocList;
}
PTRLIST* JOURNAL::getSDocPtrList() {
    return pSDocList;
}

std::int32_t JOURNAL::loadDocPtrList(topftype pool, selectiontype selection) {
    if (!logged_on())
        return rpc::refused;
    const a_get_elist_i request{ZERDIX::clsGetLoginId(), selection};
    switch (pool) {
    case TOPF_S:
        return load<outgoing, outgoing::whole>(pClient, request, pSListResult, pSDocList, this);
    case TOPF_E:
        return load<incoming, incoming::whole>(pClient, request, pEListResult, pEDocList, this);
    case TOPF_P:
        return load<desk, desk::whole>(pClient, request, pPListResult, pPDocList, this);
    }
    return rpc::success;
}

std::int32_t JOURNAL::loadDocPtrList(topftype pool, selectiontype selection,
                                     std::int32_t firstvalue, std::int32_t secondvalue) {
    if (!logged_on())
        return rpc::refused;
    const a_get_elistb_i request{ZERDIX::clsGetLoginId(), selection, firstvalue, secondvalue};
    switch (pool) {
    case TOPF_S:
        return load<outgoing, outgoing::block>(pClient, request, pSListResult, pSDocList, this);
    case TOPF_E:
        return load<incoming, incoming::block>(pClient, request, pEListResult, pEDocList, this);
    case TOPF_P:
        return load<desk, desk::block>(pClient, request, pPListResult, pPDocList, this);
    }
    return rpc::success;
}

std::int32_t JOURNAL::isBifStatus(topftype pool) {
    const by_object caller{pClient};
    client* handle = caller.handle();
    if (handle == nullptr)
        return rpc::no_client;
    const boolean* found = rpc::call<proc::a_is_bif_1>(caller, handle, {user_id(), pool});
    return found != nullptr ? found->value : rpc::call_failed;
}
