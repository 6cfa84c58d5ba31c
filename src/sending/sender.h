// SPDX-License-Identifier: MIT
// The steps by which a document of the desk reaches its receivers. A caller takes them in an
// order of its own, with its own trace lines, log lines and messages between them; what came of
// each step is noted in the caller's outcome here, and nowhere else.
#ifndef ZERDIX_SENDING_SENDER_H
#define ZERDIX_SENDING_SENDER_H

#include <cstdint>

#include <zerdix/journal.h>
#include <zerdix/zerdix.h>

#include "imaging/bitmap.h"
#include "sending/made_document.h"
#include "sending/outcome.h"

namespace zerdix::sending {

class sender {
  public:
    // `record` is the send record of the present receiver. All three outlive the sender.
    sender(JOURNAL& journal, a_s_rec& record, outcome& result)
        : journal_(journal), record_(record), result_(result) {}

    // A new document on the desk of the session's user; no_document on failure.
    std::int32_t make_document();

    bool copy(std::int32_t from, std::int32_t to);

    // Composes the cover page of the record's receiver into `bitmap` and puts an empty first page
    // into the document, whose id the record gets. False when there is no cover page; the user was
    // told by then.
    bool compose_cover(ZERDIX& session, imaging::LeadBitmap& bitmap, std::int32_t document);

    // Stores the composed picture as page 1. The record gets the number of `pages` once the picture
    // is converted.
    enum class cover_end { stored, not_converted, not_stored };
    cover_end store_cover(imaging::LeadBitmap& bitmap, std::int32_t document, std::int16_t pages);

    // Hands the document over for the receiver of that index in the outcome.
    bool send(std::int32_t document, std::size_t receiver);

    // Deletes a document of the session's user.
    bool remove(std::int32_t document);

  private:
    bool note(zx_step step, std::int32_t rc);

    JOURNAL& journal_;
    a_s_rec& record_;
    outcome& result_;
};

} // namespace zerdix::sending

#endif
