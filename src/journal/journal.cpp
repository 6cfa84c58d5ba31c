// SPDX-License-Identifier: MIT
// Making a JOURNAL, and fetching single records. What it holds releases itself.

#include <zerdix/journal.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "rpc/call.h"
#include "rpc/fields.h"

using namespace zerdix;
using rpc::by_object;
using rpc::user_id;
namespace proc = rpc::proc;

JOURNAL::JOURNAL() : pClient(ZERDIX::clsGetClient()) {}

JOURNAL::~JOURNAL() = default;

std::int32_t JOURNAL::clssetPCTAsIs() {
    return resolution_as_is;
}
std::int32_t JOURNAL::clssetPCTFine() {
    return resolution_fine;
}
std::int32_t JOURNAL::clssetPCTNormal() {
    return resolution_normal;
}

a_e_rec* JOURNAL::getEDoc(std::int32_t faxid) {
    return rpc::fetch<proc::a_get_e_1>(by_object{pClient}, {user_id(), faxid}, pERecResult);
}

a_s_rec* JOURNAL::getSDoc(std::int32_t faxid) {
    return rpc::fetch<proc::a_get_s_1>(by_object{pClient}, {user_id(), faxid}, pSRecResult);
}

a_p_rec* JOURNAL::getPDoc(std::int32_t faxid) {
    return rpc::fetch<proc::a_get_p_1>(by_object{pClient}, {user_id(), faxid}, pPRecResult);
}

a_get_inf_o* JOURNAL::getDocInf(topftype pool, std::int32_t faxid, int markRead) {
    const rpc::by_object_keeping_handle caller{pClient};
    if (caller.handle() == nullptr)
        return nullptr;
    if (faxid != 0 && markRead == 1)
        setbif(pool, faxid, 0);
    return rpc::fetch<proc::a_get_inf_1>(caller, {user_id(), pool, faxid}, pInfResult);
}
