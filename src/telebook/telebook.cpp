// SPDX-License-Identifier: MIT
// Making a TELEBOOK, and the operations on phone books and their entries.

#include <zerdix/telebook.h>

#include "rpc/fields.h"
#include "rpc/gathered_list.h"
#include "rpc/list.h"
#include "telebook/entry_request.h"

using namespace zerdix;
using rpc::alpha_id;
using rpc::by_object;
using rpc::truth;
using rpc::user_id;
using rpc::whole_field;
namespace proc = rpc::proc;

TELEBOOK::TELEBOOK() : pClient(ZERDIX::clsGetClient()) {}

TELEBOOK::~TELEBOOK() = default;

PTRLIST* TELEBOOK::getTBooks() {
    return rpc::fetch_list<proc::o_get_tbooks_1>(by_object{pClient}, {alpha_id(), user_id()},
                                                 pTBooksResult, pTBookList);
}

o_tebu* TELEBOOK::getTBook(const char* tbookid) {
    return rpc::fetch<proc::o_get_tbook_1>(
        by_object{pClient}, {alpha_id(), user_id(), whole_field<10>(tbookid)}, pTBookResult);
}

std::int32_t TELEBOOK::putTBook(const o_tebu* book) {
    return rpc::request<proc::o_put_tbook_1>(by_object{pClient}, {alpha_id(), user_id(), *book});
}

std::int32_t TELEBOOK::delTBook(const char* tbookid) {
    return rpc::request<proc::o_del_tbook_1>(by_object{pClient},
                                             {alpha_id(), user_id(), whole_field<10>(tbookid)});
}

PTRLIST* TELEBOOK::getTBookEntries(const char* tbookid, nettypetype nettype, const char* start,
                                   std::int32_t blocksize) {
    return rpc::fetch_list<proc::o_get_tbookl_1>(
        by_object{pClient},
        telebook::entry_request(tbookid, nettype, whole_field<10>(start), blocksize),
        pEntriesResult, pEntryList);
}

o_tebul* TELEBOOK::getTBookEntry(const char* tbookid, const char* teleid, int flag) {
    return rpc::fetch<proc::o_get_tbookentry_1>(
        by_object{pClient},
        {alpha_id(), user_id(), whole_field<10>(tbookid), whole_field<10>(teleid), truth(flag)},
        pEntryResult);
}

std::int32_t TELEBOOK::putTBookEntry(const o_tebul* entry) {
    return rpc::request<proc::o_put_tbookentry_1>(by_object{pClient},
                                                  {alpha_id(), user_id(), *entry});
}

std::int32_t TELEBOOK::delTBookEntry(const char* tbookid, const char* teleid) {
    return rpc::request<proc::o_del_tbookentry_1>(
        by_object{pClient},
        {alpha_id(), user_id(), whole_field<10>(tbookid), whole_field<10>(teleid)});
}
