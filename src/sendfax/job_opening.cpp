// SPDX-License-Identifier: MIT
// Opening a print job.

#include <string>

#include <zerdix/timetext.h>

#include "platform/message_box.h"
#include "sendfax/job.h"
#include "sendfax/trace_lines.h"

using namespace zerdix;
using namespace zerdix::sendfax;

namespace {

void tell_job_is_active() {
    if (pa_s_rec->nettype == NETTYPE_FAX)
        platform::message_box().show("Another FAX print job is still active", "FAX printer driver");
    else
        platform::message_box().show("Another Telex print job is still active",
                                     "Telex printer driver");
}

// The job is open all the same; its first call will find out.
void tell_time_zone_is_unknown() {
    if (ZERDIX::clsGetClient() == nullptr)
        trace_lines.error("TransmissionDlg(): The Alpha server stayed silent when it was asked for "
                          "its time zone, and the connection is gone");
    else
        trace_lines.warning("TransmissionDlg(): Problems with the Alpha server's time zone");
}

} // namespace

extern "C" std::int32_t TransmissionDlg(void* parent, const char* title, std::int32_t fax) {
    const char* comment = title != nullptr ? title : "";
    const trace::operation traced{trace_lines, "TransmissionDlg():",
                                  "<-- TransmissionDlg(): Title: <%s> Fax: <%ld>", comment, fax};
    if (pzerdix != nullptr) {
        tell_job_is_active();
        trace_lines.error("TransmissionDlg(): Another zerDIX print job is still active");
        return declined;
    }
    sending::job_outcome().begin();
    job().lFaxid = NO_FAXID;
    job().sPaperSource = 0;
    job().hParentWnd = parent;
    *pa_s_rec = a_s_rec{};
    if (!open_session(true)) {
        sending::job_outcome().failed_so_far(failure);
        return failure;
    }
    pa_s_rec->comment.assign(comment);
    pa_s_rec->nettype = fax != 0 ? NETTYPE_FAX : NETTYPE_TELEX;
    if (setTZ() != success)
        tell_time_zone_is_unknown();
    traced.exit("--> TransmissionDlg(): OK");
    return success;
}
