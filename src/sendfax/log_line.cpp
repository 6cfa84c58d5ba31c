// SPDX-License-Identifier: MIT
#include "sendfax/log_line.h"

#include <cstdarg>
#include <cstdio>

#include "platform/format.h"
#include "sendfax/job.h"
#include "sendfax/trace_lines.h"

namespace zerdix::sendfax {

namespace {

constexpr std::size_t line_buffer = 256;

} // namespace

// As asctime, but with the day always in two digits, and in English whatever the locale is.
std::string log_time(std::time_t when) {
    constexpr const char* days[] = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
    constexpr const char* months[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                      "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::tm local{};
    localtime_r(&when, &local);
    char text[64];
    std::snprintf(text, sizeof text, "%s %s %02d %02d:%02d:%02d %04d", days[local.tm_wday],
                  months[local.tm_mon], local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                  local.tm_year + 1900);
    return text;
}

job_log::job_log(const char* entry_point, std::time_t when)
    : entry_point_(entry_point), when_(when) {}

void job_log::document_created(std::int32_t document, const char* user, const char* alpha) const {
    write(document, "%s $ps.document_created: $f:=%ld $u:=%s $a:=%s", document, user, alpha);
}

void job_log::page_no_completed(std::int32_t document, std::int32_t page) const {
    write(document, "%s $ps.page_no_completed: $p:=%ld", page);
}

void job_log::document_completed(std::int32_t document) const {
    write(document, "%s $ps.document_completed:");
}

void job_log::document_deleted(std::int32_t document) const {
    write(document, "%s $ps.document_deleted:");
}

void job_log::document_deleted(std::int32_t document, std::int32_t deleted,
                               const char* user) const {
    write(document, "%s $ps.document_deleted: $f:=%ld $u:=%s", deleted, user);
}

// The first "%s" of each format is the time with a blank behind it.
void job_log::write(std::int32_t document, const char* format, ...) const {
    const std::string_view behind_time = std::string_view{format}.substr(2);
    std::string line = log_time(when_) + ' ';
    char text[line_buffer];
    std::va_list arguments;
    va_start(arguments, format);
    const std::size_t length =
        platform::format_text({text, sizeof text - line.size()}, behind_time, arguments);
    va_end(arguments);
    line.append(text, length);
    if (job().pjournal->putLog(TOPF_P, document, line.c_str()) != success)
        trace_lines.warning("%s: Problems with writing log entry", entry_point_);
}

} // namespace zerdix::sendfax
