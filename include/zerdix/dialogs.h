// SPDX-License-Identifier: MIT
// Dialogs that a client's program opens by itself. (A print job opens the send dialog when it needs
// one: zerdix/sendfax.h.)
#ifndef ZERDIX_DIALOGS_H
#define ZERDIX_DIALOGS_H

#include <cstdint>

#include <zerdix/export.h>

class JOURNAL;

// Whether there is any use in a call that opens a dialog: the environment names a screen, and its
// ZERDIX_DIALOGS isn't "none". The screen may still turn out not to be there.
ZX_API bool DialogsMayOpen();

// Asks the user how and to whom documents of the desk are to go, and sends each of them to each
// receiver: fax pages as a send job, text as a telex, as the user chooses. Runs on the connection
// and in the name of the session's user, and returns when the dialog has gone.
//
// `parent` is the window in front of which the dialog stands; it may be null. `docIds` are the ids
// of the documents, ended by 0. `comments` holds 31 bytes for each document, its comment and a NUL;
// null stands for empty comments. With one document the user may change the comment; with several
// each keeps its own.
//
// Where the user wants a cover page, each receiver gets a document of their own: a copy of the
// document that `docIds` named, with that receiver's cover page in front. These copies stay on the
// desk, and the element of `docIds` names the last one of them afterwards; the document that it
// named before stays as it was. Without cover pages `docIds` stays as it is.
//
// 2301: accepted; the sending is over, and the user was told of whatever failed. 2302: cancelled,
// nothing was sent. -1: no dialog can be shown, or there is nothing to send, or the program ends.
ZX_API std::int32_t SendStoredDocuments(void* parent, JOURNAL* journal, std::int32_t* docIds,
                                        const char* comments);

#endif
