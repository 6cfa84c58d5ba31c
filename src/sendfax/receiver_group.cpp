// SPDX-License-Identifier: MIT
#include "sendfax/receiver_group.h"

#include <string>

#include "rpc/call.h"
#include "sendfax/job.h"
#include "sendfax/receivers.h"
#include "sendfax/trace_lines.h"
#include "sending/group_members.h"

namespace zerdix::sendfax {

namespace {

constexpr const char* group_key = "RECEIVERGROUP";

void remark(zx_remark_kind kind, const std::string& about) {
    sending::job_outcome().remark(kind, group_key, about);
}

bool fits_net_type(const o_tebul& entry) {
    if (pa_s_rec->nettype == NETTYPE_FAX && entry.nettype != NETTYPE_FAX) {
        trace_lines.error("SetFaxMergeData: telebook book entry is not fax receiver");
        return false;
    }
    if (pa_s_rec->nettype == NETTYPE_TELEX && entry.nettype != NETTYPE_TELEX) {
        trace_lines.error("SetFaxMergeData: telebook book entry is not telex receiver");
        return false;
    }
    return true;
}

void add_member(const o_tgroupl& member, const o_tebul* entry) {
    const std::string named = sending::receiver_string(member.tbookid, member.teleid);
    if (sending::is_missing(entry)) {
        trace_lines.error("SetFaxMergeData: telebook book entry does not exist");
        return remark(ZX_REMARK_NO_ENTRY, named);
    }
    if (!fits_net_type(*entry))
        return remark(ZX_REMARK_WRONG_NET, named);
    const std::string receiver = sending::receiver_string(entry->tbookid, entry->teleid);
    add_receiver(receiver);
    trace_lines.info("SetFaxMergeData: Receiver: %s", receiver.c_str());
}

bool group_failed(const char* line, bool by_call) {
    trace_lines.error("%s", line);
    sending::job_outcome().failed(ZX_STEP_GROUP, by_call ? rpc::call_failed : rpc::no_client);
    return false;
}

} // namespace

bool add_receiver_group(TELEBOOK& books, const char* groupid) {
    const std::int32_t before = lPDCountReceiver;
    const rpc::failed_call_mark calls;
    const sending::group_end end = sending::read_group(books, groupid, add_member);
    switch (end) {
    case sending::group_end::no_group:
        return group_failed("SetFaxMergeData: (getTGroup) Problems with RPC connection",
                            calls.any_failed());
    case sending::group_end::no_members:
        return group_failed("SetFaxMergeData: (getTGroupEntries) Problems with RPC connection",
                            calls.any_failed());
    case sending::group_end::unknown:
        trace_lines.error("SetFaxMergeData: : group <%s> doesn't exist on the server", groupid);
        remark(ZX_REMARK_NO_GROUP, groupid);
        return true;
    case sending::group_end::read:
        if (lPDCountReceiver == before)
            remark(ZX_REMARK_EMPTY_GROUP, groupid);
        return true;
    }
    return true;
}

} // namespace zerdix::sendfax
