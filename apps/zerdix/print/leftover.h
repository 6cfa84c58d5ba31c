// SPDX-License-Identifier: MIT
// Deletes what a job that ended before its time has left on the server. All but the first function
// use a connection of their own, since the job's own may be what failed.
#ifndef ZERDIX_APP_PRINT_LEFTOVER_H
#define ZERDIX_APP_PRINT_LEFTOVER_H

#include <cstdint>
#include <string>
#include <vector>

class JOURNAL;

namespace zerdix::app {

// Deletes a desk document of the session's user over the present connection. Tells the user if it
// stays or may stay.
void clear_leftover(JOURNAL& journal, std::int32_t document);

// Deletes desk documents of the session's user. Tells the user of each that stays or may stay.
void clear_leftovers(const std::vector<std::int32_t>& documents, const std::string& host);

// The same of documents some of which lie on another user's desk, under the administrator's name.
void clear_leftovers_anywhere(const std::vector<std::int32_t>& documents, const std::string& host);

// Deletes a document of the print user. Whether it is gone.
bool clear_print_document(std::int32_t document, const std::string& host);

} // namespace zerdix::app

#endif
