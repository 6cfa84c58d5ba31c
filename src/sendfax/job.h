// SPDX-License-Identifier: MIT
// The state of the print job: the only thing that the entry points share.
//
// There is one job per process. It begins with TransmissionDlg, or with a page that comes without
// it, and close_job resets everything, whichever way the job ends. A job is active while `pzerdix`
// isn't null. Seven members are exported data and stand in zerdix/sendfax.h: pzerdix, pa_s_rec,
// ppReceiver, lPDCountReceiver, fCoverpage, userid and alphaid.
#ifndef ZERDIX_SENDFAX_JOB_H
#define ZERDIX_SENDFAX_JOB_H

#include <limits>
#include <optional>

#include <zerdix/journal.h>
#include <zerdix/records.h>
#include <zerdix/sendfax.h>
#include <zerdix/values.h>
#include <zerdix/zerdix.h>

#include "imaging/bitmap.h"
#include "sending/sender.h"

namespace zerdix::sendfax {

// The job has no document yet.
constexpr std::int32_t NO_FAXID = std::numeric_limits<std::int32_t>::max();

enum result : std::int32_t {
    success = call_succeeded,
    declined =
        call_refused, // not a failure: another job, a cancelled dialog, a preparer that passes
    failure = call_failed,
};

// A user of the session, and the server.
struct identity {
    str10 user;
    str35 alpha_server;
};

struct job_state {
    JOURNAL* pjournal = nullptr;         // comes and goes with pzerdix
    std::int32_t lFaxid = NO_FAXID;      // the job's document
    std::int16_t sPageCount = 0;         // pages stored so far
    std::int16_t sPaperSource = 0;       // from merge data; kept until the next TransmissionDlg
    std::int16_t sLastPaperSource = -1;  // that pBackPage belongs to, -1 for none
    page_dat* pBackPage = nullptr;       // the letterhead fetched last; what pjournal keeps
    imaging::LeadBitmap bmpBackground{}; // its picture, once a page was laid over it
    void* hParentWnd = nullptr;          // handed to the send dialog, never looked at
    std::int32_t fSendActive = 0;        // 1 while SendFaxDoc runs
    std::int32_t fDialogActive = 0;      // 1 while the send dialog runs
    std::int32_t fLogCompleted = 1;      // the fan-out still has to write its completion line
    std::int32_t receiver_room = 0;      // slots of ppReceiver

    // The session's own user and server, while a telex is sent as another user.
    std::optional<identity> own_identity;
};

job_state& job();

// Whether SendFaxDoc or the send dialog is at work on the job. The dialog's windows run a message
// loop, so that a driver may call meanwhile; no such call may end the job.
bool is_sending();

// Makes the session's objects and connects to the server of the settings, where the session has
// none yet. False when no connection could be made; the objects stay. With `record_user` a user
// that comes from the settings is noted in the send record.
bool open_session(bool record_user);

// The steps of the sending, on the job's document, record and outcome.
sending::sender job_sender();

// Forgets the letterhead fetched last; the next page fetches it anew.
void forget_background();

// Called before the session takes another user's name for the rest of the job.
void keep_own_identity();

// Ends the job: receivers, connection and objects go, and the state is idle again. The
// session has its own user and server again.
void close_job();

} // namespace zerdix::sendfax

#endif
