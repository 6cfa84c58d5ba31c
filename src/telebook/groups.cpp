// SPDX-License-Identifier: MIT
// Recipient groups and their members.

#include <string>

#include <zerdix/telebook.h>

#include "rpc/fields.h"
#include "rpc/gathered_list.h"
#include "rpc/list.h"

using namespace zerdix;
using rpc::alpha_id;
using rpc::by_object;
using rpc::truth;
using rpc::user_id;
using rpc::whole_field;
namespace proc = rpc::proc;

namespace {

// The key by which a record is asked for again.
std::string key_of(const o_tgroup& group) {
    return std::string{group.groupid.view()};
}

std::string key_of(const o_tgroupl& member) {
    return std::string{member.tbookid.view()} + '\0' + std::string{member.teleid.view()};
}

} // namespace

// A key may fill its field and then has no NUL: no more than the field is read of it.
PTRLIST* TELEBOOK::getTGroups() {
    return rpc::gather<o_tgroup>(
        pTGroupList,
        [this](const o_tgroup* last) {
            return getTGroupsB(last != nullptr ? last->groupid.bytes : "", rpc::block_to_gather());
        },
        [](const o_tgroup& group) { return key_of(group); });
}

PTRLIST* TELEBOOK::_getTGroups() {
    return rpc::fetch_list<proc::o_get_tgroups_1>(by_object{pClient}, {alpha_id(), user_id()},
                                                  pTGroupsResult, pTGroupList);
}

PTRLIST* TELEBOOK::getTGroupsB(const char* start, std::int32_t blocksize) {
    return rpc::fetch_list<proc::o_get_tgroupsb_1>(
        by_object{pClient}, {alpha_id(), user_id(), whole_field<10>(start), blocksize},
        pTGroupBlockResult, pTGroupBlock);
}

o_tgroup* TELEBOOK::getTGroup(const char* groupid) {
    return rpc::fetch<proc::o_get_tgroup_1>(
        by_object{pClient}, {alpha_id(), user_id(), whole_field<10>(groupid)}, pTGroupResult);
}

std::int32_t TELEBOOK::putTGroup(const o_tgroup* group) {
    return rpc::request<proc::o_put_tgroup_1>(by_object{pClient}, {alpha_id(), user_id(), *group});
}

std::int32_t TELEBOOK::delTGroup(const char* groupid) {
    return rpc::request<proc::o_del_tgroup_1>(by_object{pClient},
                                              {alpha_id(), user_id(), whole_field<10>(groupid)});
}

PTRLIST* TELEBOOK::getTGroupEntries(const char* groupid, int flag) {
    const str10 group = whole_field<10>(groupid);
    return rpc::gather<o_tgroupl>(
        pTGroupEntryList,
        [&](const o_tgroupl* last) {
            return getTGroupEntriesB(group.bytes, flag, last != nullptr ? last->tbookid.bytes : "",
                                     last != nullptr ? last->teleid.bytes : "",
                                     rpc::block_to_gather());
        },
        [](const o_tgroupl& member) { return key_of(member); });
}

PTRLIST* TELEBOOK::_getTGroupEntries(const char* groupid, int flag) {
    return rpc::fetch_list<proc::o_get_tgroupl_1>(
        by_object{pClient}, {alpha_id(), user_id(), whole_field<10>(groupid), truth(flag)},
        pTGroupEntriesResult, pTGroupEntryList);
}

PTRLIST* TELEBOOK::getTGroupEntriesB(const char* groupid, int flag, const char* starttbook,
                                     const char* starttele, std::int32_t blocksize) {
    return rpc::fetch_list<proc::o_get_tgrouplb_1>(by_object{pClient},
                                                   {alpha_id(), user_id(), whole_field<10>(groupid),
                                                    truth(flag), whole_field<10>(starttbook),
                                                    whole_field<10>(starttele), blocksize},
                                                   pTGroupEntryBlockResult, pTGroupEntryBlock);
}

std::int32_t TELEBOOK::putTGroupEntry(const o_tgroupl* entry) {
    return rpc::request<proc::o_put_tgroupentry_1>(by_object{pClient},
                                                   {alpha_id(), user_id(), *entry});
}

std::int32_t TELEBOOK::delTGroupEntry(const char* groupid, const char* tbookid,
                                      const char* teleid) {
    return rpc::request<proc::o_del_tgroupentry_1>(
        by_object{pClient}, {alpha_id(), user_id(), whole_field<10>(groupid),
                             whole_field<10>(tbookid), whole_field<10>(teleid)});
}
