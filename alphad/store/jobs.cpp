// SPDX-License-Identifier: MIT
#include "alphad/store/jobs.h"

#include <ctime>

#include "alphad/store/stored_record.h"

namespace zerdix::alphad {

namespace {

#define JOB_COLUMNS "desk, receiver, record, cancelled, spool"

send_job read_row(const statement& row) {
    send_job job{row.number(0), row.text(1), from_stored<a_s_rec>(row.bytes(2)), row.flag(3),
                 row.text(4)};
    job.record.status = job.state();
    return job;
}

} // namespace

send_status send_job::state() const {
    if (cancelled)
        return send_cancelled;
    const bool later = record.sendtime > std::time(nullptr);
    return later || record.nighttariff ? send_waiting : send_spooled;
}

void jobs::put(const send_job& job) {
    execute(
        db_, "INSERT OR REPLACE INTO jobs (document, " JOB_COLUMNS ") VALUES (?, ?, ?, ?, ?, ?)",
        job.record.faxid, job.desk, job.receiver, to_stored(job.record), job.cancelled, job.spool);
}

std::optional<send_job> jobs::find(std::int32_t document) const {
    statement row(db_, "SELECT " JOB_COLUMNS " FROM jobs WHERE document = ?", document);
    if (!row.step())
        return std::nullopt;
    return read_row(row);
}

std::vector<send_job> jobs::all() const {
    statement row(db_, "SELECT " JOB_COLUMNS " FROM jobs ORDER BY document");
    std::vector<send_job> found;
    while (row.step())
        found.push_back(read_row(row));
    return found;
}

} // namespace zerdix::alphad
