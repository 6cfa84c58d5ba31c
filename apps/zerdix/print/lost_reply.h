// SPDX-License-Identifier: MIT
// Finds out whether a send job was made although the reply to its request was lost: asks the server
// over a connection of its own.
#ifndef ZERDIX_APP_PRINT_LOST_REPLY_H
#define ZERDIX_APP_PRINT_LOST_REPLY_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <zerdix/outcome.h>

class JOURNAL;

namespace zerdix::app {

// An id that the server gives now; all that it gives later lie behind it. Nothing when it can't be
// had. A document is made for it and deleted again.
std::optional<std::int32_t> id_given_now(JOURNAL& journal);

// A request to send a desk document that got no answer, and what is known of the other send jobs
// that the command made of desk documents.
struct lost_request {
    std::int32_t document; // still there
    std::int32_t before;   // an id that was given before the command's first send job
    std::vector<std::int32_t> known_jobs;
    std::size_t jobs_without_id = 0; // made of this document; their ids aren't known
    bool timed_out = false;          // a server that was only slow may still be at it
};

enum class lost_job { made, not_made, unknown };

// Outgoing documents are looked up id by id, since a print job has no login and gets no list. They
// are known by their log, which begins with a copy of the desk document's first line. A server that
// gives ids or copies logs otherwise leaves it unknown.
lost_job look_up(const lost_request& request, const std::string& host);

// The receivers that have their send jobs, and those that may have them. `before` is an id that was
// given before the first send job of documents that others may have been made of before.
struct reached_receivers {
    std::vector<const zx_receiver*> handed_over;
    std::vector<const zx_receiver*> unknown;
};
reached_receivers reached_by(const zx_outcome& outcome, std::optional<std::int32_t> before,
                             const std::string& host);

} // namespace zerdix::app

#endif
