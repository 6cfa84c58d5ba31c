// SPDX-License-Identifier: MIT
// Operations on whole documents: each fills the argument of one procedure, in wire order.

#include <zerdix/journal.h>
#include <zerdix/values.h>

#include "journal/sent_document.h"
#include "rpc/call.h"
#include "rpc/config_number.h"
#include "rpc/fields.h"

using namespace zerdix;
using rpc::by_object;
using rpc::field;
using rpc::truth;
using rpc::user_id;
namespace proc = rpc::proc;

namespace {

// Whether a send job is refused for its priority. Without a handle there is nothing to refuse.
bool cannot_be_priority(const by_object& caller, std::int16_t priority) {
    return priority < 0 && caller.handle() != nullptr;
}

} // namespace

std::int32_t JOURNAL::createDoc(const char* user) {
    const by_object caller{pClient};
    client* handle = caller.handle();
    if (handle == nullptr)
        return -1;
    const std::int32_t* faxid = rpc::call<proc::a_create_doc_1>(caller, handle, field<10>(user));
    return faxid != nullptr ? *faxid : -1;
}

std::int32_t JOURNAL::makeDoc() {
    return createDoc(ZERDIX::clsGetUserId());
}

std::int32_t JOURNAL::makePrintDoc() {
    return createDoc(print_user);
}

std::int32_t JOURNAL::copyDoc(topftype pool, std::int32_t sourceFaxid, std::int32_t targetFaxid) {
    return rpc::request<proc::a_copy_doc_1>(by_object{pClient},
                                            {user_id(), pool, sourceFaxid, targetFaxid});
}

std::int32_t JOURNAL::delDoc(topftype pool, std::int32_t faxid) {
    return deleteDoc(ZERDIX::clsGetUserId(), pool, faxid);
}

std::int32_t JOURNAL::delPrintDoc(topftype pool, std::int32_t faxid) {
    return deleteDoc(print_user, pool, faxid);
}

std::int32_t JOURNAL::deleteDoc(const char* user, topftype pool, std::int32_t faxid) {
    return rpc::request<proc::a_del_doc_1>(by_object{pClient},
                                           {field<10>(user), pool, faxid, truth(1)});
}

std::int32_t JOURNAL::forwardDoc(topftype pool, std::int32_t faxid, const char* targetAlpha,
                                 const char* targetOne, const char* targetTwo,
                                 topftype targetPool) {
    return rpc::request<proc::a_forward_doc_1>(
        by_object{pClient}, {user_id(), pool, faxid, field<35>(targetAlpha), field<10>(targetOne),
                             field<10>(targetTwo), targetPool});
}

std::int32_t JOURNAL::printDoc(topftype pool, std::int32_t faxid, std::int16_t fromPage,
                               std::int16_t toPage, const char* printer, std::int16_t copies) {
    return printDocument(ZERDIX::clsGetUserId(), pool, faxid, fromPage, toPage, printer, copies);
}

std::int32_t JOURNAL::printPrintDoc(topftype pool, std::int32_t faxid, std::int16_t fromPage,
                                    std::int16_t toPage, const char* printer, std::int16_t copies) {
    return printDocument(print_user, pool, faxid, fromPage, toPage, printer, copies);
}

std::int32_t JOURNAL::printDocument(const char* user, topftype pool, std::int32_t faxid,
                                    std::int16_t fromPage, std::int16_t toPage, const char* printer,
                                    std::int16_t copies) {
    return rpc::request<proc::a_print_doc_1>(
        by_object{pClient},
        {field<10>(user), pool, faxid, fromPage, toPage, field<10>(printer), copies});
}

std::int32_t JOURNAL::putComment2Doc(topftype pool, std::int32_t faxid, const char* comment) {
    return rpc::request<proc::a_put_comment_1>(by_object{pClient},
                                               {user_id(), pool, faxid, field<30>(comment)});
}

std::int32_t JOURNAL::setPublic(std::int32_t faxid, int isPublic) {
    return rpc::request<proc::a_set_public_1>(by_object{pClient},
                                              {user_id(), faxid, truth(isPublic)});
}

std::int32_t JOURNAL::setbif(topftype pool, std::int32_t faxid, int flag) {
    return rpc::request<proc::a_set_bif_1>(by_object{pClient},
                                           {user_id(), pool, faxid, truth(flag)});
}

std::int32_t JOURNAL::setReadFlag(topftype pool, std::int32_t faxid) {
    return setbif(pool, faxid, 0);
}

// The answer is a long; anything but 0 is a success.
std::int32_t JOURNAL::sendDoc(std::int32_t faxid, const a_s_rec* record) {
    if (cannot_be_priority(by_object{pClient}, record->priority))
        return rpc::refused;
    return rpc::request<proc::a_send_doc_1>(by_object{pClient}, {user_id(), faxid, *record});
}

std::int32_t journal::sent_document() {
    return wire::result_slot<proc::a_send_doc_1>::record;
}

std::int32_t JOURNAL::chgSRec(std::int32_t faxid, std::int16_t priority, const char* comment,
                              std::int32_t sendtime, int nighttariff, std::int16_t maxretries,
                              std::int32_t resolution) {
    if (cannot_be_priority(by_object{pClient}, priority))
        return rpc::refused;
    return rpc::request<proc::a_chg_s_rec_1>(
        by_object{pClient}, {faxid, user_id(), priority, field<30>(comment), sendtime,
                             truth(nighttariff), maxretries, resolution});
}

std::int32_t JOURNAL::cancelJob(std::int32_t faxid) {
    return rpc::request<proc::a_cancel_job_1>(by_object{pClient}, {user_id(), faxid});
}

std::int32_t JOURNAL::restartSendJob(std::int32_t faxid) {
    return rpc::request<proc::a_restart_job_1>(by_object{pClient}, {user_id(), faxid});
}

std::int32_t JOURNAL::scanDoc(const char* scanner, std::int32_t value, const char* comment) {
    return rpc::request<proc::a_scan_doc_1>(
        by_object{pClient}, {field<10>(scanner), user_id(), value, field<30>(comment)});
}

std::int32_t JOURNAL::getCoverId() {
    const by_object caller{pClient};
    client* handle = caller.handle();
    if (handle == nullptr)
        return -1;
    if (lCoverId != 0)
        return lCoverId;
    str80* value = rpc::call<proc::a_get_config_1>(caller, handle, {field<10>("COVER"), 1});
    if (value == nullptr)
        return -1;
    lCoverId = rpc::config_number(*value);
    wire::release(*value);
    return lCoverId;
}

// Only a refused page ends the work: a page that couldn't be asked for leaves a gap, and the next
// one keeps its number.
std::int32_t JOURNAL::combineDocs(const fax_info* list, std::uint16_t count) {
    const std::int32_t target = makeDoc();
    if (target == -1)
        return -1;
    std::int16_t number = 0;
    for (const fax_info* source = list; source != list + count; ++source)
        for (std::int32_t page = 1; page <= source->pages; ++page)
            if (copyDocPage(source->pool, source->faxid, static_cast<std::int16_t>(page), target,
                            ++number) == rpc::refused)
                return -1;
    setbif(TOPF_P, target, 1);
    return target;
}
