/* SPDX-License-Identifier: MIT */
/* What came of the last print job, and of the last SendStoredDocuments: receiver by receiver, which
 * step failed and why, and what is still on the server. Usable from C and C++.
 *
 *     if (SendFaxDoc() != 0)
 *         show(OutcomeText(LastJobOutcome()));
 *
 * Conventions
 *
 * (1) The results of the functions themselves stay as they are; this is what stands behind them.
 * (2) Records and texts are the library's. The outcome of a print job is good until the next job
 *     begins: with its TransmissionDlg, with merge data that comes before it, or with a page that
 *     comes without it. That of SendStoredDocuments is good until its next call. Texts of
 *     OutcomeText and RemarkText are good until the same function is called again.
 * (3) Text is Windows-1252, and in the language of the session.
 * (4) Records may grow at their end. A program reads them through the pointers it is given.
 */
#ifndef ZERDIX_OUTCOME_H
#define ZERDIX_OUTCOME_H

#include <stdint.h>

#include <zerdix/export.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What became of a receiver. */
enum zx_delivery {
    ZX_NOT_TRIED = 0,   /* nothing went out to it: a step before it failed, or the user cancelled */
    ZX_HANDED_OVER = 1, /* the server has taken the send job, or the telex */
    ZX_REFUSED = 2,     /* the server has answered that it doesn't take it */
    ZX_UNKNOWN = 3,     /* the request went out and its reply was lost: it may have been taken */
};

/* The steps of a job, in the order in which they come. */
enum zx_step {
    ZX_STEP_NONE = 0,    /* nothing failed */
    ZX_STEP_CONNECT = 1, /* connecting to the server */
    ZX_STEP_GROUP = 2,   /* reading a recipient group */
    ZX_STEP_CREATE = 3,  /* creating a document */
    ZX_STEP_PREPARE = 4, /* taking a page in: its block, its letterhead, its compression */
    ZX_STEP_STORE = 5,   /* storing a page */
    ZX_STEP_DIALOG = 6,  /* the send dialog couldn't run */
    ZX_STEP_COPY = 7,    /* copying the document for a receiver or for another user's desk */
    ZX_STEP_COVER = 8,   /* composing a cover page */
    ZX_STEP_INSPECT = 9, /* reading which data a stored document has */
    ZX_STEP_SEND = 10,   /* handing the send job, or the telex, over */
    ZX_STEP_DELETE = 11, /* deleting a document that has served */
};

struct zx_receiver {
    const char* receiver; /* a number as it was given, or BOOK:ENTRY; at most 30 characters */
    int32_t delivery;     /* a zx_delivery */
    int32_t document;     /* the desk document, or print document, that went to it; 0: none */
    int32_t outgoing;     /* the outgoing document, as the server answered; 0: none, not known, or a
                           * telex, which has none */
};

/* Something in the merge data that wasn't taken as it stood. */
enum zx_remark_kind {
    ZX_REMARK_UNKNOWN_KEY = 1, /* no such key; `key` holds the text between the marks */
    ZX_REMARK_CUT = 2,         /* the value was cut to what its field holds */
    ZX_REMARK_BAD_VALUE = 3,   /* the value isn't one of the key's, and nothing was set */
    ZX_REMARK_BAD_TIME = 4,    /* the time can't be read: the document goes out at once */
    ZX_REMARK_NO_GROUP = 5,    /* the server has no such recipient group */
    ZX_REMARK_EMPTY_GROUP = 6, /* the group has no member for this job's net */
    ZX_REMARK_NO_ENTRY = 7,    /* a member of a group has no phone book entry, and was left out */
    ZX_REMARK_WRONG_NET = 8,   /* a member of a group is of the other net, and was left out */
    ZX_REMARK_NO_END = 9,      /* an opening mark without a closing one; `value` holds the rest */
    ZX_REMARK_NO_NUMBER = 10,  /* the value doesn't begin with a number, and counts as 0 */
};

struct zx_remark {
    int32_t kind;      /* a zx_remark_kind */
    const char* key;   /* such as "SENDTIME" */
    const char* value; /* as it was given, or what the remark is about, such as BOOK:ENTRY */
};

struct zx_outcome {
    int32_t result; /* what the function returned that ended the job, or that failed last; -1 while
                     * the job goes on without a failure */

    /* The first step that failed. */
    int32_t step;         /* a zx_step */
    int32_t answer;       /* 4: the server refused it, 8: the remote call failed, 12: there was no
                           * connection, 0: it failed without the server */
    int32_t rpc_status;   /* of the failed call, a clnt_stat of the ONC RPC library (5: time-out);
                           * 0 when no call failed */
    int32_t system_error; /* its errno, 0 when there was none */

    const struct zx_receiver* receivers; /* in the order in which they were named */
    int32_t receiver_count;

    const int32_t* left; /* documents that the job made or was to delete, and that are, or may be,
                          * on the server still */
    int32_t left_count;
    const char* desk_user; /* user on whose desk the document was to be laid, "": none */
    int32_t on_desk;       /* the document that lies there now, 0: none */

    const struct zx_remark* remarks; /* on the merge data, in its order; the first 1,000 */
    int32_t remark_count;
};

/* Never null. Of a job that hasn't begun all is 0, and the result -1. */
ZX_API const struct zx_outcome* LastJobOutcome(void);
ZX_API const struct zx_outcome* LastStoredOutcome(void);

/* What came of it in a sentence or a few, such as "Handed over: 2 of 3. Unknown, may have been
 * taken: 030123456. ..." Never null; an outcome that is null gives an empty text. */
ZX_API const char* OutcomeText(const struct zx_outcome* outcome);

/* A remark as a sentence. */
ZX_API const char* RemarkText(const struct zx_remark* remark);

#ifdef __cplusplus
}
#endif

#endif
