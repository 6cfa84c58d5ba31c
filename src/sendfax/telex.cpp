// SPDX-License-Identifier: MIT
// Sending a telex: its whole text is printed at once, on the server's printer that stands for the
// telex line.

#include <new>
#include <string>
#include <vector>

#include <zerdix/values.h>

#include "sendfax/job.h"
#include "sendfax/receivers.h"
#include "sendfax/send_dialog.h"
#include "sendfax/trace_lines.h"
#include "sending/telex_record.h"
#include "sending/telex_sender.h"

using namespace zerdix;
using namespace zerdix::sendfax;

namespace {

std::int32_t ask_user() {
    const std::int32_t rc = run_send_dialog();
    if (rc == declined)
        trace_lines.warning("SendTelex(): SendDialog cancelled");
    if (rc != success && rc != declined) {
        sending::job_outcome().failed(ZX_STEP_DIALOG, 0);
        trace_lines.error("SendTelex(): RC returned from CallSendDialog(): %ld", rc);
    }
    return rc;
}

// Makes the user whom the dialog named the session's, up to the end of the job.
void act_as_pool_user() {
    if (userid[0] == '\0')
        return;
    keep_own_identity();
    trace_lines.info("SendTelex(): Creation of a new pool document for %s on %s is requested",
                     userid, alphaid);
    pzerdix->setUserId(userid);
    if (alphaid[0] != '\0')
        pzerdix->setAlphaserver(alphaid);
}

bool connection_problem() {
    trace_lines.error("SendTelex(): Problems with RPC connection");
    return false;
}

bool make_print_document() {
    if (job().lFaxid != NO_FAXID)
        return true;
    const std::int32_t made = sending::made_document(
        sending::job_outcome(), [] { return job().lFaxid = job().pjournal->makePrintDoc(); });
    if (made == sending::no_document)
        return connection_problem();
    pa_s_rec->faxid = job().lFaxid;
    trace_lines.info("SendTelex(): Faxid of created document: %ld", job().lFaxid);
    return true;
}

sending::telex_sender telex_steps() {
    return {*job().pjournal, sending::job_outcome()};
}

bool print_page(std::string& content, std::size_t receiver) {
    switch (telex_steps().print(job().lFaxid, content, picture_telex, receiver)) {
    case sending::telex_sender::end::printed:
        trace_lines.info("SendTelex(): Document will be printed");
        return true;
    case sending::telex_sender::end::refused:
        trace_lines.error("SendTelex(): Document could not be printed");
        return false;
    default:
        return connection_problem();
    }
}

// `content` is the work buffer: it has room for both, and serves all receivers.
bool print_for(const char* receiver, std::size_t index, std::string_view text,
               const std::string& time, std::string& content) {
    trace_lines.info("SendTelex(): Receiver: <%s>", receiver);
    if (userid[0] == '\0')
        pa_s_rec->phone.assign(receiver);
    const char* user = userid[0] != '\0' ? userid : ZERDIX::clsGetUserId();
    const std::string control = sending::control_record(*pa_s_rec, user, time);
    trace_lines.info("SendTelex(): Controlrecord: %s", control.c_str());
    content.assign(control).append(text); // a copy: taking the string over would drop the buffer
    return print_page(content, index);
}

bool is_named(std::int32_t index) {
    return ppReceiver[index] != nullptr && ppReceiver[index][0] != '\0';
}

std::vector<std::string> named_receivers() {
    std::vector<std::string> names;
    for (std::int32_t i = 0; i < lPDCountReceiver; ++i)
        if (is_named(i))
            names.emplace_back(ppReceiver[i]);
    return names;
}

// First receiver to last; the page is stored anew for each.
bool print_for_all(std::string_view text) {
    std::string content;
    content.reserve(text.size() + sending::control_record_room);
    const std::string time = sending::telex_send_time(pa_s_rec->sendtime);
    trace_lines.info("SendTelex(): lPDCountReceiver: %ld", lPDCountReceiver);
    std::size_t index = sending::job_outcome().name_receivers(named_receivers());
    for (std::int32_t i = 0; i < lPDCountReceiver; ++i) {
        if (!is_named(i))
            continue;
        if (!print_for(ppReceiver[i], index++, text, time, content))
            return false;
        release_receiver(i);
    }
    release_receivers();
    return true;
}

bool delete_print_document() {
    return telex_steps().remove(job().lFaxid) || connection_problem();
}

// False leaves the job open, for DeleteFaxDoc to end it.
bool print_telex(std::string_view text) {
    return make_print_document() && print_for_all(text) && delete_print_document();
}

void end_job(std::int32_t rc) {
    close_job();
    sending::job_outcome().ended(rc);
}

std::int32_t send_telex(std::string_view text) {
    if (pzerdix == nullptr) {
        trace_lines.error("SendTelex(): no initialisation");
        return failure;
    }
    if (is_sending()) {
        trace_lines.error("SendTelex(): function already active");
        return failure;
    }
    if (ppReceiver == nullptr) {
        const std::int32_t rc = ask_user();
        if (rc != success) {
            end_job(rc);
            return rc;
        }
        act_as_pool_user();
    }
    if (!print_telex(text)) {
        sending::job_outcome().failed_so_far(failure);
        return failure;
    }
    end_job(success);
    return success;
}

// A text can be as large as memory itself; the job stays open when it doesn't fit.
std::int32_t take_telex(const char* text, std::int32_t size) {
    try {
        const std::string copy =
            text != nullptr && size > 0 ? std::string(text, static_cast<std::size_t>(size)) : "";
        trace_lines.entry("<-- SendTelex(): Telex text (size: %ld): %s", size, copy.c_str());
        return send_telex(copy);
    } catch (const std::bad_alloc&) {
        trace_lines.error("SendTelex(): Problems to allocate memory");
        return failure;
    }
}

} // namespace

extern "C" std::int32_t SendTelex(const char* text, std::int32_t size) {
    const std::int32_t rc = take_telex(text, size);
    if (rc == success)
        trace_lines.exit("--> SendTelex(): OK");
    else
        trace_lines.exit("--> SendTelex():");
    return rc;
}
