// SPDX-License-Identifier: MIT
// Sending the document of a print job: the receivers, the fan-out, and the end of the job.

#include <cstring>
#include <ctime>

#include "sendfax/cover_fan_out.h"
#include "sendfax/job.h"
#include "sendfax/pool_document.h"
#include "sendfax/receivers.h"
#include "sendfax/send_dialog.h"
#include "sendfax/trace_lines.h"

using namespace zerdix;
using namespace zerdix::sendfax;

namespace {

// The umlauts are Windows-1252.
void trace_job() {
    const a_s_rec& record = *pa_s_rec;
    trace_lines.info("SendFaxDoc(): Faxid -> %ld", record.faxid);
    trace_lines.info("SendFaxDoc(): Userid -> %s", record.userid.bytes);
    trace_lines.info("SendFaxDoc(): Priorit\xe4t -> %hd", record.priority);
    trace_lines.info("SendFaxDoc(): Status -> %ld", record.status);
    trace_lines.info("SendFaxDoc(): Seiten -> %hd", job().sPageCount);
    trace_lines.info("SendFaxDoc(): Kommentar -> %s", record.comment.bytes);
    trace_lines.info("SendFaxDoc(): Nachttarif -> %hd", record.nighttariff.value);
    trace_lines.info("SendFaxDoc(): Error-Status -> %hd", record.errorstatus);
    trace_lines.info("SendFaxDoc(): Wiederholungen (max.) -> %hd", record.maxretries);
    trace_lines.info("SendFaxDoc(): Wiederholungen (tats.) -> %hd", record.retries);
    trace_lines.info("SendFaxDoc(): Empf\xe4nger-TSI -> %s", record.tsi.bytes);
    trace_lines.info("SendFaxDoc(): Netztyp (1=FAX/2=TELEX) -> %hd", record.nettype);
    trace_lines.info("SendFaxDoc(): Aufl\xf6sung (0=as is/1=fine/2=normal) -> %ld",
                     record.resolution);
}

// Asks the user for what merge data left open; anything but success ends the job.
std::int32_t ask_user() {
    const std::int32_t rc = run_send_dialog();
    if (rc == declined) {
        trace_lines.warning("SendFaxDoc(): SendDialog cancelled");
        trace_lines.info("SendFaxDoc(): Delete temporary fax doc: %ld", job().lFaxid);
        if (!job_sender().remove(job().lFaxid))
            trace_lines.error("SendFaxDoc(): Problems with deleting document");
    } else if (rc != success) {
        sending::job_outcome().failed(ZX_STEP_DIALOG, 0);
        trace_lines.error("SendFaxDoc(): RC returned from CallSendDialog(): %ld", rc);
    }
    return rc;
}

// Receivers from the first on, up to the count or the first empty string.
std::int32_t count_receivers() {
    std::int32_t count = 0;
    while (count < lPDCountReceiver && ppReceiver[count] != nullptr && ppReceiver[count][0] != '\0')
        ++count;
    trace_lines.info("SendFaxDoc(): Number of receivers: %ld", count);
    sending::job_outcome().name_receivers({ppReceiver, ppReceiver + count});
    return count;
}

// One pass of a fan-out without cover page: the document is one and the same for all receivers.
bool send_to_receiver(std::int32_t index, const job_log& log) {
    take_receiver(index);
    if (userid[0] == '\0') {
        if (job().fLogCompleted != 0)
            log.document_completed(job().lFaxid);
        job().fLogCompleted = 0;
        pa_s_rec->pages = job().sPageCount;
        if (!job_sender().send(job().lFaxid, static_cast<std::size_t>(index))) {
            trace_lines.error("SendFaxDoc(): Problems with sending document");
            return false;
        }
    }
    release_receiver(index);
    return true;
}

// With cover pages each pass deletes the document that it sent; the job's own goes with the last.
bool delete_sent_document(const job_log& log) {
    if (fCoverpage != 0)
        return true;
    log.document_deleted(job().lFaxid);
    if (job_sender().remove(job().lFaxid))
        return true;
    trace_lines.error("->SendFaxDoc(): Problems with deleting document");
    return false;
}

bool run_passes(std::int32_t count, const job_log& log) {
    if (fCoverpage != 0)
        return run_cover_passes(count, log);
    for (std::int32_t index = count - 1; index >= 0; --index)
        if (!send_to_receiver(index, log))
            return false;
    return true;
}

bool deliver(const job_log& log) {
    const bool to_pool = userid[0] != '\0';
    const pool_delivery pool;
    const std::int32_t count = to_pool ? pool.passes() : count_receivers();
    if (!run_passes(count, log))
        return false;
    release_receivers();
    job().fLogCompleted = 1;
    if (fCoverpage == 0)
        trace_lines.info("SendFaxDoc(): Delete temporary fax doc: %ld", job().lFaxid);
    return to_pool ? pool.deliver(log) : delete_sent_document(log);
}

std::int32_t send_job() {
    const job_log log{"SendFaxDoc()", std::time(nullptr)};
    if (ppReceiver == nullptr) {
        const std::int32_t rc = ask_user();
        if (rc != success)
            return rc;
    }
    return deliver(log) ? success : failure;
}

void end_job(std::int32_t rc) {
    close_job();
    sending::job_outcome().ended(rc);
    job().fLogCompleted = 1;
    job().fSendActive = 0;
}

} // namespace

extern "C" std::int32_t SendFaxDoc() {
    const trace::operation traced{trace_lines, "SendFaxDoc()", "<-- SendFaxDoc():"};
    if (pzerdix == nullptr) {
        traced.exit("--> SendFaxDoc(): no initialisation");
        return success;
    }
    if (is_sending()) {
        traced.exit("--> SendFaxDoc(): function already active");
        return success;
    }
    job().fSendActive = 1;
    trace_job();
    if (job().lFaxid == NO_FAXID) {
        traced.exit("--> SendFaxDoc(): for an empty page we make no action");
        end_job(success);
        return success;
    }
    const std::int32_t rc = send_job();
    end_job(rc);
    return rc;
}
