// SPDX-License-Identifier: MIT
// Send jobs. Each belongs to an outgoing document, the server's own copy of what was on the desk.
#ifndef ZERDIX_ALPHAD_STORE_JOBS_H
#define ZERDIX_ALPHAD_STORE_JOBS_H

#include <optional>
#include <vector>

#include <zerdix/values.h>

#include "alphad/store/database.h"

namespace zerdix::alphad {

struct send_job {
    std::int32_t desk;    // id of the desk document
    std::string receiver; // as it was asked for: a number, or BOOK:ENTRY
    a_s_rec record;       // with the receiver's number as phone
    bool cancelled;
    std::string spool; // the file as spool_places finds it, empty when there is none

    // A spooled one's file lies in the spool folder; this server has no line to send it on.
    send_status state() const;
};

class jobs {
  public:
    explicit jobs(database& db) : db_(db) {}

    // The key is record.faxid. Replaces an earlier one.
    void put(const send_job& job);
    std::optional<send_job> find(std::int32_t document) const;
    std::vector<send_job> all() const;

  private:
    database& db_;
};

} // namespace zerdix::alphad

#endif
