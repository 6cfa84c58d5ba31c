// SPDX-License-Identifier: MIT
// The lists of the three pools, whole or by blocks.

#include <memory>

#include <zerdix/journal.h>
#include <zerdix/zerdix.h>

#include "rpc/fields.h"
#include "rpc/list.h"

using namespace zerdix;
using rpc::by_object;
using rpc::by_object_keeping_handle;
using rpc::user_id;
namespace proc = rpc::proc;

namespace {

// Loads a pool. The old list goes with the answer behind it: after a call that failed an empty one
// stands in its place.
template <class P>
std::int32_t load(client*& copy, const typename P::argument& request,
                  held_result<typename P::result>& answer, std::unique_ptr<PTRLIST>& list) {
    const by_object_keeping_handle caller{copy};
    if (caller.handle() == nullptr)
        return rpc::no_client;
    const auto* loaded = rpc::fetch<P>(caller, request, answer);
    list = loaded != nullptr ? rpc::list_of(*loaded) : std::make_unique<PTRLIST>();
    return loaded != nullptr ? rpc::success : rpc::call_failed;
}

bool logged_on() {
    return ZERDIX::clsCheckLogin() < rpc::refused;
}

} // namespace

PTRLIST* JOURNAL::getEDocPtrList() {
    return pEDocList.get();
}
PTRLIST* JOURNAL::getPDocPtrList() {
    return pPDocList.get();
}
PTRLIST* JOURNAL::getSDocPtrList() {
    return pSDocList.get();
}

std::int32_t JOURNAL::loadDocPtrList(topftype pool, selectiontype selection) {
    if (!logged_on())
        return rpc::refused;
    const a_get_elist_i request{ZERDIX::clsGetLoginId(), selection};
    switch (pool) {
    case TOPF_S:
        return load<proc::a_get_slist_1>(pClient, request, pSListResult, pSDocList);
    case TOPF_E:
        return load<proc::a_get_elist_1>(pClient, request, pEListResult, pEDocList);
    case TOPF_P:
        return load<proc::a_get_plist_1>(pClient, request, pPListResult, pPDocList);
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
        return load<proc::a_get_slistb_1>(pClient, request, pSListResult, pSDocList);
    case TOPF_E:
        return load<proc::a_get_elistb_1>(pClient, request, pEListResult, pEDocList);
    case TOPF_P:
        return load<proc::a_get_plistb_1>(pClient, request, pPListResult, pPDocList);
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
