// SPDX-License-Identifier: MIT
#include "sendfax/job.h"

#include <cstring>
#include <string>

#include "common/settings.h"
#include "cover/state.h"
#include "imaging/page_forms.h"
#include "rpc/call.h"
#include "sendfax/receivers.h"
#include "sendfax/trace_lines.h"

namespace {

a_s_rec send_record{};

} // namespace

extern "C" {
ZERDIX* pzerdix = nullptr;
a_s_rec* pa_s_rec = &send_record;
char** ppReceiver = nullptr;
std::int32_t lPDCountReceiver = 0;
std::int32_t fCoverpage = 0;
char userid[11] = "";
char alphaid[36] = "";
}

namespace zerdix::sendfax {

namespace {

void take_user_from_settings(bool record_user) {
    const std::string user = common::setting_user();
    pzerdix->setUserId(user.c_str());
    if (record_user)
        pa_s_rec->userid.assign(user);
}

// The next job of the process mustn't run as another user.
void restore_own_identity() {
    std::optional<identity>& own = job().own_identity;
    if (!own || pzerdix == nullptr)
        return;
    pzerdix->setUserId(own->user.bytes);
    pzerdix->setAlphaserver(own->alpha_server.bytes);
    own.reset();
}

} // namespace

job_state& job() {
    static job_state state;
    return state;
}

bool is_sending() {
    return job().fSendActive != 0 || job().fDialogActive != 0;
}

bool open_session(bool record_user) {
    pzerdix = new ZERDIX;
    job().pjournal = new JOURNAL;
    if (ZERDIX::clsGetClient() != nullptr)
        return true;
    // A user and a server that the process knows from an earlier job stay.
    if (ZERDIX::clsGetUserId()[0] == '\0')
        take_user_from_settings(record_user);
    if (ZERDIX::clsGetAlphaServer()[0] == '\0')
        pzerdix->setAlphaserver(common::setting_host().c_str());
    if (pzerdix->GetClientAddr(ZERDIX::clsGetAlphaServer()) != nullptr)
        return true;
    trace_lines.error("TransmissionDlg(): Problems with RPC connection");
    sending::job_outcome().failed(ZX_STEP_CONNECT, rpc::no_client);
    return false;
}

void keep_own_identity() {
    if (job().own_identity)
        return; // the session speaks as another user already
    identity own{};
    own.user.assign(ZERDIX::clsGetUserId());
    own.alpha_server.assign(ZERDIX::clsGetAlphaServer());
    job().own_identity = own;
}

sending::sender job_sender() {
    return {*job().pjournal, *pa_s_rec, sending::job_outcome()};
}

void forget_background() {
    job().sLastPaperSource = -1;
    job().pBackPage = nullptr;
    imaging::FreeLeadBitmap(&job().bmpBackground);
}

void close_job() {
    release_receivers();
    cover::forget_session();
    restore_own_identity();
    if (pzerdix != nullptr && ZERDIX::clsGetClient() != nullptr)
        pzerdix->CleanupHostConnection();
    delete job().pjournal;
    job().pjournal = nullptr;
    delete pzerdix;
    pzerdix = nullptr;
    fCoverpage = 0;
    forget_background();
    job().sPageCount = 0;
    job().lFaxid = NO_FAXID;
    std::memset(userid, 0, sizeof userid);
    std::memset(alphaid, 0, sizeof alphaid);
}

} // namespace zerdix::sendfax

extern "C" void ReadJobSettings(zx_job_settings* settings) {
    const a_s_rec& record = *pa_s_rec;
    *settings = {record.faxid,
                 {},
                 {},
                 record.pages,
                 record.priority,
                 record.sendtime,
                 record.nighttariff.value,
                 record.maxretries,
                 record.nettype,
                 record.resolution};
    record.comment.view().copy(settings->title, sizeof settings->title - 1);
    record.phone.view().copy(settings->receiver, sizeof settings->receiver - 1);
}
