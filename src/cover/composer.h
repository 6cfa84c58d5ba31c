// SPDX-License-Identifier: MIT
// The cover page composer: a form from the server's cover template with the recipient's and the
// sender's data drawn on it, as a new first page of a document.
//
// The template is a desk document whose id stands in the server's configuration. Its page 1 holds
// two pictures: type 0 is the form, type 10 a text of commands that say what goes where
// (cover/page_painter.h).
#ifndef ZERDIX_COVER_COMPOSER_H
#define ZERDIX_COVER_COMPOSER_H

#include <cstdint>

#include <zerdix/journal.h>
#include <zerdix/records.h>
#include <zerdix/zerdix.h>

#include "imaging/bitmap.h"

namespace zerdix::cover {

// 1 with the finished picture in `bitmap` and an empty page 1 in the document `faxid`, for which
// the caller makes the page with ConvertLeadToCompressedFax(page, bitmap, 0). 0 when there is no
// cover page; then the user was told in a message box, and no page was added.
//
// `bitmap` was set up by L_InitBitmap; what it holds is released. It remains the caller's. `record`
// gives the receiver in `phone`, and the document's comment.
int InsertCoverPage(ZERDIX* session, JOURNAL* journal, imaging::LeadBitmap* bitmap,
                    const a_s_rec* record, std::int32_t faxid);

// The phone book entry of the receiver `phone`: BOOK:ENTRY, or an entry of the shared book
// "common". 1 with *entry set, good until the next look-up; an entry that doesn't exist has an
// empty tbookid. 0 when the call failed.
int FindReceiverEntry(const a_s_rec* record, o_tebul** entry);

} // namespace zerdix::cover

#endif
