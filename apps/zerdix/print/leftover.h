// SPDX-License-Identifier: MIT
// What a job that ended before its time has left on the server. Everything here is asked and done
// over a connection of its own, since the job's own may be what failed.
#ifndef ZERDIX_APP_PRINT_LEFTOVER_H
#define ZERDIX_APP_PRINT_LEFTOVER_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zerdix::app {

// Deletes desk documents of the session's user. Tells the user of each that stays or may stay.
void clear_leftovers(const std::vector<std::int32_t>& documents, const std::string& host);

// The same of documents some of which lie on another user's desk, under the administrator's name.
void clear_leftovers_anywhere(const std::vector<std::int32_t>& documents, const std::string& host);

// Whether a send job was made of the desk document beside those whose ids are `known`; the desk
// document is there still. Nothing when the server can't tell: a print job has no login, and
// without one there is no list, so outgoing documents are looked up id by id and known by their
// log, which begins with a copy of the desk document's.
std::optional<bool> has_further_job(std::int32_t document, const std::vector<std::int32_t>& known,
                                    const std::string& host);

// Deletes a document of the print user. Whether it is gone.
bool clear_print_document(std::int32_t document, const std::string& host);

} // namespace zerdix::app

#endif
