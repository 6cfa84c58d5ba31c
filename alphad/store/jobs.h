// Send jobs. Each belongs to an outgoing document, the server's own copy of what was on the desk.
#ifndef ZERDIX_ALPHAD_STORE_JOBS_H
#define ZERDIX_ALPHAD_STORE_JOBS_H

#include <optional>
#include <vector>

#include <zerdix/records.h>

#include "alphad/store/database.h"

namespace zerdix::alphad {

// The status field of an outgoing document.
enum class job_state : std::int32_t {
    waiting = 1, // for its time or for the night tariff
    spooled = 2, // its file lies in the spool folder; this server has no line to send it on
    cancelled = 3,
};

struct send_job {
    std::int32_t desk;    // id of the desk document
    std::string receiver; // as it was asked for: a number, or BOOK:ENTRY
    a_s_rec record;       // with the receiver's number as phone
    bool cancelled;
    std::string spool; // the file as spool_places finds it, empty when there is none

    job_state state() const;
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
