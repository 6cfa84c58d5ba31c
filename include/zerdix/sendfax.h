/* SPDX-License-Identifier: MIT */
/* The print job interface: what a fax or telex printer driver calls. Usable from C and C++.
 *
 *     TransmissionDlg(window, "Title", 1);          open a job
 *     SetFaxMergeData(text, length);                receivers and settings, at any time
 *     StoreFaxPage(block, size, 0, 0);              once for each page
 *     SendFaxDoc();                                 or SendTelex, or DeleteFaxDoc; AbandonFaxDoc
 *                                                   where that one fails
 *
 * Conventions
 *
 * (1) There is one job per process at a time, and all calls come from one thread. No call carries
 *     a job handle.
 * (2) Results are 32 bits wide: 0 success, 4 a refusal that isn't a failure, 8 failure. 4 of
 *     SetFaxMergeData is a success too. What came of a job, receiver by receiver, which step
 *     failed and why, and what of the merge data wasn't taken, stands in its outcome
 *     (zerdix/outcome.h); failures stand in the error log, too (zerdix/trace.h).
 * (3) The library keeps no pointer that is handed in beyond the call, the window reference apart.
 * (4) Text is Windows-1252.
 * (5) A call that reaches the server blocks for up to 25 seconds.
 */
#ifndef ZERDIX_SENDFAX_H
#define ZERDIX_SENDFAX_H

#include <stdint.h>

#include <zerdix/export.h>

#ifdef __cplusplus
class ZERDIX;
extern "C" {
#else
typedef struct ZERDIX ZERDIX;
#endif

struct a_s_rec;

/* Opens a job. `parent` is the window over which the send dialog opens: on X11 the window's id as a
 * pointer, or null. `title` becomes the document's comment, cut to 30 characters. `fax` isn't 0 for
 * a fax job, 0 for a telex job.
 *
 * It asks the server for its time zone and makes that the zone of the process (TZ in the
 * environment), which it stays for good, for the driver's own local times too.
 *
 * 0: the job is open. 4: another job is active and is left untouched; the user was told. 8: no
 * connection to the Alpha server; DeleteFaxDoc is needed before the next job. A server that takes
 * the connection and then stays silent makes the call wait for 25 seconds and gives 0 as well: the
 * connection is gone by then, the error log says so, and the calls that need it fail. */
ZX_API int32_t TransmissionDlg(void* parent, const char* title, int32_t fax);

/* Takes receivers and settings out of a text of #KEY value# pairs; everything else in the text is
 * skipped. `length` bytes are read; no NUL is needed. A value is cut at 30 characters.
 *
 *   #PHONE text#            one receiver: a number, or BOOK:ENTRY
 *   #RECEIVERGROUP id#      all members of a recipient group that fit the job's net type
 *   #TITLE text#            comment of the send jobs; of the document, too, before its first page
 *   #PAPER n#               paper source, 0 to 9, for the pages behind it
 *   #PRIORITY n#            0 to 100
 *   #RESOLUTION r#          NORMAL or FINE
 *   #RETRIES n#             retries allowed; 1 to 9 are usual
 *   #SENDTIME t#            NOW, DELAYED (night tariff), or a time
 *   #LAST_DOCPAGE#          says that the text belongs to the last page
 *
 * Receivers add up; of all other keys the last pair wins. What no key sets stays as it was, at
 * first 0: priority 0, no retries, at once, the resolution as it is.
 *
 * The leading digits of a number count, and text without digits is 0. PAPER and PRIORITY out of
 * their range change nothing. RETRIES has no range test: the low 16 bits count, so that 65545 is 9.
 *
 * The id of a group has at most 10 characters; which group a longer value names isn't told. One
 * that the server doesn't hold, one without members, and one whose members don't fit bring no
 * receiver, and the result is 0; lPDCountReceiver tells how many receivers there are.
 *
 * A time is an hour, with minutes and seconds or without, in the server's zone. It is today's, also
 * when that has passed, unless a date stands in front. The form is that of the session's language:
 *
 *   German                      31.12.97 20:15:30
 *   French                      31.12.97 20.15.30
 *   British, Spanish, Italian   31/12/97 20:15:30
 *   American                    12/31/97 20:15:30
 *
 * A year below 70 is 20xx, others are 19xx. A time that can't be read counts as none: the fax goes
 * out at once, or with the night tariff when DELAYED was set.
 *
 * 0: done. 4: done, and LAST_DOCPAGE was among the pairs. 8: a remote call failed in RECEIVERGROUP;
 * the pairs behind it aren't handled. */
ZX_API int32_t SetFaxMergeData(const char* text, int32_t length);

/* Stores one page, at the end of the document. `block` is width and height in pixels, 32 bits each,
 * most significant byte first, then the rows, the last row of the picture first, each of width / 8
 * bytes, leftmost pixel in bit 7, a set bit white. `size` is the block's length in bytes, header
 * included, and must cover the header and all rows. The caller keeps the block, which isn't
 * changed.
 *
 * The width must be a multiple of 8, and neither width nor height may be 0. A fax line is 1,728
 * pixels wide; a page has 204 pixels to the inch across and 196 down, and nothing here scales it. A
 * page that is wider than high is turned, its top to the left.
 *
 * Pages are numbered in the order of the calls, up to 32,767; `page_index` is only traced.
 * `paper_source`, 0 to 9, selects the letterhead, unless merge data named one above 0.
 *
 * When there is no job the call opens one. It has the settings and the parent window that the job
 * before it left behind, and the server isn't asked for its time zone.
 *
 * 0: the page is on the server. 8: any failure, also while the job is being sent or its dialog
 * runs; the job stays open. A page that was refused for its block doesn't count; one that the
 * server didn't take does. */
ZX_API int32_t StoreFaxPage(const void* block, int32_t size, int16_t page_index,
                            int16_t paper_source);

/* Sends the job's document to every receiver and ends the job. Without receivers the send dialog
 * asks for them. The receivers get their send jobs one after the other, the last one first, and the
 * first failure stops that.
 *
 * With fCoverpage each receiver gets the document with a cover page of their own. When one can't be
 * made the user is told, and the receivers that were still to come are dropped; the result is 0 all
 * the same, and the document stays on the user's desk unless it was the first receiver's turn.
 *
 * A document for a user's desk isn't sent. It stays where it is when that is the job's own user,
 * and gets no cover page; else it is copied there and deleted here. When its cover page can't be
 * made the result is 8, an empty document is on the other desk, and none here.
 *
 * 0: done, or nothing to do, or a cover page that couldn't be made. 4: the user cancelled. 8: a
 * step failed; the job is closed all the same, send jobs that went out stay, and so does the
 * document on the user's desk. */
ZX_API int32_t SendFaxDoc(void);

/* Prints a telex text for every receiver and ends the job. `size` bytes are taken; no NUL is
 * needed. Without receivers the send dialog asks for them.
 *
 * 0: done. 4: the user cancelled. 8: the dialog failed, and the job is closed; or a later step
 * failed, and the job stays open until DeleteFaxDoc, or AbandonFaxDoc where that one fails. */
ZX_API int32_t SendTelex(const char* text, int32_t size);

/* Gives the job up: takes its document off the server and ends the job. 0, or 8 when the document
 * couldn't be deleted or while the job is being sent: the windows of SendFaxDoc run a message loop.
 * The job then stays open and the call can be repeated; where that doesn't help, AbandonFaxDoc
 * does. */
ZX_API int32_t DeleteFaxDoc(void);

/* Forgets the job without a word to the server: for a job that DeleteFaxDoc can't end, because the
 * connection is gone (it isn't made anew within a job) or the server never made the document. The
 * next TransmissionDlg connects anew.
 *
 * The id of the document that stays behind on the desk of the job's user, with what pages it has;
 * of a telex it is a print document of the server's. 0 when there is none, or none that is known:
 * one whose creation got no answer may be there all the same. -1, and nothing is done, while the
 * job is being sent or its dialog runs. */
ZX_API int32_t AbandonFaxDoc(void);

/* The state of the job, for dialogs and drivers that look at it. Owned by the library; valid from
 * TransmissionDlg to the end of the job, pa_s_rec always. */
extern ZX_API ZERDIX* pzerdix;          /* session object; not null while a job is active */
extern ZX_API struct a_s_rec* pa_s_rec; /* the send record; the fields are in zerdix/records.h */
extern ZX_API char** ppReceiver;        /* receivers, 31 bytes each; null while none is known */
extern ZX_API int32_t lPDCountReceiver; /* number of strings in ppReceiver */
extern ZX_API int32_t fCoverpage;       /* 1: each receiver gets a cover page. A driver may set it
                                         * until SendFaxDoc; the dialog sets it by its own box. */
extern ZX_API char userid[11];          /* user on whose desk the document is to be left, or "" */
extern ZX_API char alphaid[36];         /* that user's Alpha server, or "" */

/* The send record in a form that C can read: what merge data and the dialog have set so far, and
 * the receiver that was at hand last. Texts are NUL-terminated. */
struct zx_job_settings {
    int32_t document;     /* the job's document, 0: none yet */
    char title[31];       /* the document's comment */
    char receiver[31];    /* "" before the first */
    int32_t pages;        /* of the document that was sent last, a cover page included */
    int32_t priority;     /* 0 to 32767 */
    int32_t send_time;    /* seconds since 1970-01-01 UTC, 0: at once */
    int32_t night_tariff; /* 1: the server waits for the night tariff */
    int32_t retries;      /* allowed */
    int32_t net_type;     /* 1 fax, 2 telex */
    int32_t resolution;   /* 0 as it is, 1 fine, 2 normal */
};

/* Reads it, also after the end of a job, until the next one opens. */
ZX_API void ReadJobSettings(struct zx_job_settings* settings);

#ifdef __cplusplus
}
#endif

#endif
