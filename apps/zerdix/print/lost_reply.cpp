// SPDX-License-Identifier: MIT
#include "print/lost_reply.h"

#include <algorithm>
#include <string_view>

#include <zerdix/journal.h>

#include "print/leftover.h"
#include "print/outcome_words.h"
#include "session/new_connection.h"

namespace zerdix::app {

namespace {

// More documents than this that were made meanwhile aren't looked through.
constexpr std::int32_t most_looked_at = 5000;

// It names the document. Lines behind it may have come after a send job was made.
std::string first_line_of_log(JOURNAL& journal, topftype pool, std::int32_t document) {
    const char* log = journal.getLog(pool, document, 0, nullptr);
    const std::string_view text = log != nullptr ? log : "";
    return std::string{text.substr(0, text.find('\n') + 1)};
}

// Nothing when the server couldn't be asked.
std::optional<bool> is_job_of(JOURNAL& journal, std::int32_t id, const std::string& line) {
    const a_s_rec* record = journal.getSDoc(id);
    if (record == nullptr)
        return std::nullopt;
    return record->faxid == id && first_line_of_log(journal, TOPF_S, id) == line;
}

// Whether there is a send job beside those that are known.
std::optional<bool> has_further_job(const lost_request& request, const std::string& host) {
    const new_connection connection(host);
    if (!connection.stands())
        return std::nullopt;
    JOURNAL journal;
    const std::string line = first_line_of_log(journal, TOPF_P, request.document);
    const auto end = line.empty() ? std::nullopt : id_given_now(journal);
    const std::int32_t begin = std::max(request.before, request.document) + 1;
    if (!end || *end < begin || *end - begin >= most_looked_at)
        return std::nullopt;
    std::size_t further = 0;
    for (std::int32_t id = begin; id < *end; ++id) {
        if (std::ranges::find(request.known_jobs, id) != request.known_jobs.end())
            continue;
        const std::optional<bool> found = is_job_of(journal, id, line);
        if (!found)
            return std::nullopt;
        further += *found ? 1 : 0;
    }
    return further > request.jobs_without_id;
}

} // namespace

std::optional<std::int32_t> id_given_now(JOURNAL& journal) {
    const std::int32_t id = journal.makeDoc();
    if (id <= 0)
        return std::nullopt;
    clear_leftover(journal, id);
    return id;
}

lost_job look_up(const lost_request& request, const std::string& host) {
    const std::optional<bool> found = has_further_job(request, host);
    if (found && *found)
        return lost_job::made;
    return found && !request.timed_out ? lost_job::not_made : lost_job::unknown;
}

reached_receivers reached_by(const zx_outcome& outcome, std::optional<std::int32_t> before,
                             const std::string& host) {
    reached_receivers reached{receivers_that_are(outcome, ZX_HANDED_OVER), {}};
    for (const zx_receiver* each : receivers_that_are(outcome, ZX_UNKNOWN)) {
        lost_request request{each->document, before.value_or(0), {}, 0, timed_out(outcome)};
        for (const zx_receiver* other : reached.handed_over)
            request.known_jobs.push_back(other->outgoing);
        const lost_job found = before ? look_up(request, host) : lost_job::unknown;
        if (found == lost_job::made)
            reached.handed_over.push_back(each);
        else if (found == lost_job::unknown)
            reached.unknown.push_back(each);
    }
    return reached;
}

} // namespace zerdix::app
