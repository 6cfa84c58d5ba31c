// SPDX-License-Identifier: MIT
#include "sendfax/pool_document.h"

#include <cstring>

#include <zerdix/values.h>

#include "sendfax/job.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

void clear_target() {
    std::memset(userid, 0, sizeof userid);
    std::memset(alphaid, 0, sizeof alphaid);
}

void mark_unread(std::int32_t document) {
    if (job().pjournal->setbif(TOPF_P, document, 1) != success)
        trace_lines.warning("SendFaxDoc(): Problems with setting bif flag");
}

// A new document on the target user's desk; no_document on failure.
std::int32_t make_target_document() {
    pzerdix->setUserId(userid);
    if (alphaid[0] != '\0')
        pzerdix->setAlphaserver(alphaid);
    const std::int32_t document = job_sender().make_document();
    if (document == sending::no_document)
        trace_lines.error("SendFaxDoc(): (makedoc) Problems with RPC connection");
    return document;
}

bool copy_document(std::int32_t document) {
    pzerdix->setUserId(administrator); // who may copy from one user to another
    if (job_sender().copy(job().lFaxid, document))
        return true;
    trace_lines.error("SendFaxDoc(): (copydoc) Problems with RPC connection");
    return false;
}

} // namespace

pool_delivery::pool_delivery() : strSavedUser{}, strSavedAlpha{} {
    if (userid[0] == '\0')
        return;
    strSavedUser.assign(ZERDIX::clsGetUserId());
    strSavedAlpha.assign(ZERDIX::clsGetAlphaServer());
    sending::job_outcome().meant_for_desk(userid);
    trace_lines.info("SendFaxDoc(): Selected Userid: <%s>", userid);
}

bool pool_delivery::is_own() const {
    return strSavedUser == std::string_view{userid};
}

std::int32_t pool_delivery::passes() const {
    return is_own() ? 0 : 1;
}

bool pool_delivery::deliver(const job_log& log) const {
    if (!is_own())
        return deliver_to_other_desk(log);
    deliver_to_own_desk(log);
    return true;
}

void pool_delivery::deliver_to_own_desk(const job_log& log) const {
    mark_unread(job().lFaxid);
    log.document_completed(job().lFaxid);
    sending::job_outcome().put_on_desk(job().lFaxid);
    clear_target();
}

bool pool_delivery::deliver_to_other_desk(const job_log& log) const {
    trace_lines.info("SendFaxDoc(): Creation of a new pool document for %s on %s is requested",
                     userid, alphaid);
    const std::int32_t document = make_target_document();
    const bool copied = document != sending::no_document && copy_document(document);
    if (copied) {
        sending::job_outcome().put_on_desk(document);
        mark_unread(document);
        log.document_completed(document);
        log.document_created(document, userid, ZERDIX::clsGetAlphaServer());
        log.document_deleted(document, job().lFaxid, strSavedUser.bytes);
    }
    pzerdix->setUserId(strSavedUser.bytes);
    pzerdix->setAlphaserver(strSavedAlpha.bytes);
    if (!copied)
        return false;
    clear_target();
    if (job_sender().remove(job().lFaxid))
        return true;
    trace_lines.error("->SendFaxDoc(): Problems with deleting document");
    return false;
}

} // namespace zerdix::sendfax
