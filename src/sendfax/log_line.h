// SPDX-License-Identifier: MIT
// The lines that the print job writes into the log of a document: the time, two blanks, and an
// event in a small token language, such as
//
//     Tue Nov 07 09:05:03 1995  $ps.page_no_completed: $p:=3
//
// The time is local time, which is the server's. A line that can't be written is traced as a
// warning and never stops a job.
#ifndef ZERDIX_SENDFAX_LOG_LINE_H
#define ZERDIX_SENDFAX_LOG_LINE_H

#include <cstdint>
#include <ctime>
#include <string>

namespace zerdix::sendfax {

// The 24 characters of the time.
std::string log_time(std::time_t when);

// Writes lines of one time on behalf of one entry point.
class job_log {
  public:
    // `entry_point` as the trace names it, such as "SendFaxDoc()".
    job_log(const char* entry_point, std::time_t when);

    void document_created(std::int32_t document, const char* user, const char* alpha) const;
    void page_no_completed(std::int32_t document, std::int32_t page) const;
    void document_completed(std::int32_t document) const;
    void document_deleted(std::int32_t document) const;

    // Into the log of `document`, which took the place of the document `deleted` of `user`.
    void document_deleted(std::int32_t document, std::int32_t deleted, const char* user) const;

  private:
    void write(std::int32_t document, const char* format, ...) const;

    const char* entry_point_;
    std::time_t when_;
};

} // namespace zerdix::sendfax

#endif
