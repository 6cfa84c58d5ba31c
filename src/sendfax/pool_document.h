// SPDX-License-Identifier: MIT
// Delivery of the job's document to a user's desk instead of a receiver.
#ifndef ZERDIX_SENDFAX_POOL_DOCUMENT_H
#define ZERDIX_SENDFAX_POOL_DOCUMENT_H

#include <zerdix/text.h>

#include "sendfax/log_line.h"

namespace zerdix::sendfax {

// Made at the beginning of the sending, while the session's user and server are still the job's
// own; the exported `userid` and `alphaid` name the user who gets the document.
class pool_delivery {
  public:
    pool_delivery();

    // The passes of the fan-out: none when the document is on the right desk already.
    std::int32_t passes() const;

    // Flags the document where it is, or copies it to the other user's desk and deletes it.
    bool deliver(const job_log& log) const;

  private:
    bool is_own() const;
    void deliver_to_own_desk(const job_log& log) const;
    bool deliver_to_other_desk(const job_log& log) const;

    str10 strSavedUser;
    str35 strSavedAlpha;
};

} // namespace zerdix::sendfax

#endif
