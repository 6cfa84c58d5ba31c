// Recipient groups and their members.

#include <string>

#include <zerdix/telebook.h>

#include "rpc/fields.h"
#include "rpc/gathered_list.h"
#include "rpc/list.h"

using namespace zerdix;
using rpc::alpha_id;
using rpc::by_object;
using rpc::field;
using rpc::truth;
using rpc::user_id;
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

// Keys go from a record to the next block as fields: one that a server filled to the brim has no
// NUL to end at.
PTRLIST* TELEBOOK::getTGroups() {
    return rpc::gather<o_tgroup>(
        pTGroupList, fTGroupCopies,
        [this](const o_tgroup* last) {
            str10 start{};
            if (last != nullptr)
                start.assign(last->groupid.view());
            return getTGroupsB(start.bytes, rpc::block_to_gather());
        },
        [](const o_tgroup& group) { return key_of(group); });
}

PTRLIST* TELEBOOK::_getTGroups() {
    PTRLIST* fresh = nullptr;
    rpc::fetch_list<proc::o_get_tgroups_1>(by_object{pClient}, {alpha_id(), user_id()},
                                           pTGroupsResult, fresh, this);
    return rpc::replace_list<o_tgroup>(pTGroupList, fTGroupCopies, fresh);
}

PTRLIST* TELEBOOK::getTGroupsB(const char* start, std::int32_t blocksize) {
    return rpc::fetch_list<proc::o_get_tgroupsb_1>(
        by_object{pClient}, {alpha_id(), user_id(), field<10>(start), blocksize},
        pTGroupBlockResult, pTGroupBlock, this);
}

o_tgroup* TELEBOOK::getTGroup(const char* groupid) {
    return rpc::fetch<proc::o_get_tgroup_1>(
        by_object{pClient}, {alpha_id(), user_id(), field<10>(groupid)}, pTGroupResult, this);
}

std::int32_t TELEBOOK::putTGroup(const o_tgroup* group) {
    return rpc::request<proc::o_put_tgroup_1>(by_object{pClient}, {alpha_id(), user_id(), *group});
}

std::int32_t TELEBOOK::delTGroup(const char* groupid) {
    return rpc::request<proc::o_del_tgroup_1>(by_object{pClient},
                                              {alpha_id(), user_id(), field<10>(groupid)});
}

PTRLIST* TELEBOOK::getTGroupEntries(const char* groupid, int flag) {
    const str10 group = field<10>(groupid);
    return rpc::gather<o_tgroupl>(
        pTGroupEntryList, fTGroupEntryCopies,
        [&](const o_tgroupl* last) {
            str10 book{}, entry{};
            if (last != nullptr) {
                book.assign(last->tbookid.view());
                entry.assign(last->teleid.view());
            }
            return getTGroupEntriesB(group.bytes, flag, book.bytes, entry.bytes,
                                     rpc::block_to_gather());
        },
        [](const o_tgroupl& member) { return key_of(member); });
}

PTRLIST* TELEBOOK::_getTGroupEntries(const char* groupid, int flag) {
    PTRLIST* fresh = nullptr;
    rpc::fetch_list<proc::o_get_tgroupl_1>(by_object{pClient},
                                           {alpha_id(), user_id(), field<10>(groupid), truth(flag)},
                                           pTGroupEntriesResult, fresh, this);
    return rpc::replace_list<o_tgroupl>(pTGroupEntryList, fTGroupEntryCopies, fresh);
}

PTRLIST* TELEBOOK::getTGroupEntriesB(const char* groupid, int flag, const char* starttbook,
                                     const char* starttele, std::int32_t blocksize) {
    return rpc::fetch_list<proc::o_get_tgrouplb_1>(
        by_object{pClient},
        {alpha_id(), user_id(), field<10>(groupid), truth(flag), field<10>(starttbook),
         field<10>(starttele), blocksize},
        pTGroupEntryBlockResult, pTGroupEntryBlock, this);
}

std::int32_t TELEBOOK::putTGroupEntry(const o_tgroupl* entry) {
    return rpc::request<proc::o_put_tgroupentry_1>(by_object{pClient},
                                                   {alpha_id(), user_id(), *entry});
}

std::int32_t TELEBOOK::delTGroupEntry(const char* groupid, const char* tbookid,
                                      const char* teleid) {
    return rpc::request<proc::o_del_tgroupentry_1>(
        by_object{pClient},
        {alpha_id(), user_id(), field<10>(groupid), field<10>(tbookid), field<10>(teleid)});
}
