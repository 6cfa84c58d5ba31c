// SPDX-License-Identifier: MIT
#include "alphad/job_table.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "alphad/store/log_text.h"
#include "platform/encoding.h"

namespace zerdix::alphad {

namespace {

// UTF-8, and one line whatever a client wrote.
std::string readable(std::string_view text) {
    std::string result = platform::cp1252_to_utf8(text);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; },
        ' ');
    return result;
}

const char* word_of(send_status state) {
    switch (state) {
    case send_waiting:
        return "waiting";
    case send_cancelled:
        return "cancelled";
    default:
        return "spooled";
    }
}

std::string picture_path(const send_job& job, const spool_places& files) {
    return job.spool.empty() ? std::string{} : files.find(job.spool).string();
}

using row = std::array<std::string, 7>;

row row_of(const send_job& job, const spool_places& files) {
    return {std::to_string(job.record.faxid),
            readable(job.receiver),
            readable(job.record.phone.view()),
            std::to_string(job.record.pages),
            word_of(job.state()),
            readable(job.record.comment.view()),
            picture_path(job, files)};
}

// In characters: bytes that only continue one don't count.
std::size_t width_of(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

void print_row(std::ostream& out, const row& cells, const std::array<std::size_t, 7>& widths) {
    for (std::size_t i = 0; i + 1 < cells.size(); ++i)
        out << cells[i] << std::string(widths[i] - width_of(cells[i]) + 2, ' ');
    out << cells.back() << '\n';
}

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + '"';
}

void print_json(std::ostream& out, const send_job& job, const std::vector<std::string>& log,
                const spool_places& files) {
    const row cells = row_of(job, files);
    out << "  {\"job\": " << cells[0] << ", \"desk\": " << job.desk
        << ", \"user\": " << quoted(readable(job.record.userid.view()))
        << ",\n   \"receiver\": " << quoted(cells[1]) << ", \"number\": " << quoted(cells[2])
        << ", \"tsi\": " << quoted(readable(job.record.tsi.view()))
        << ",\n   \"pages\": " << cells[3] << ", \"state\": " << quoted(cells[4])
        << ", \"resolution\": " << job.record.resolution
        << ", \"priority\": " << job.record.priority << ", \"retries\": " << job.record.maxretries
        << ", \"sendtime\": " << job.record.sendtime << ",\n   \"title\": " << quoted(cells[5])
        << ", \"picture\": " << quoted(cells[6]) << ",\n   \"log\": [";
    for (std::size_t i = 0; i < log.size(); ++i)
        out << (i == 0 ? "\n     " : ",\n     ")
            << quoted(readable(in_words(log[i], log_language::english)));
    out << "]}";
}

} // namespace

void print_jobs(std::ostream& out, const store& store, const spool_places& files) {
    const std::vector<send_job> jobs = store.jobs.all();
    if (jobs.empty()) {
        out << "no send jobs\n";
        return;
    }
    std::vector<row> rows{{"JOB", "RECEIVER", "NUMBER", "PAGES", "STATE", "TITLE", "PICTURE"}};
    for (const send_job& job : jobs)
        rows.push_back(row_of(job, files));
    std::array<std::size_t, 7> widths{};
    for (const row& cells : rows)
        for (std::size_t i = 0; i < cells.size(); ++i)
            widths[i] = std::max(widths[i], width_of(cells[i]));
    print_row(out, rows[0], widths);
    for (std::size_t i = 0; i < jobs.size(); ++i) {
        print_row(out, rows[i + 1], widths);
        for (const std::string& line : store.logs.all(jobs[i].record.faxid))
            out << "     " << readable(in_words(line, log_language::english)) << '\n';
    }
}

void print_jobs_json(std::ostream& out, const store& store, const spool_places& files) {
    out << "[";
    bool first = true;
    for (const send_job& job : store.jobs.all()) {
        out << (first ? "\n" : ",\n");
        print_json(out, job, store.logs.all(job.record.faxid), files);
        first = false;
    }
    out << (first ? "]\n" : "\n]\n");
}

} // namespace zerdix::alphad
